// How long filling the equipment grid takes for a list of 5,000 databases, and of 50,000: reading the
// list, looking at the 3 of 10 that are installed (Access files in a warm cache), sizing the columns
// and painting the grid in its window. The bars: 600 ms, and 12 times as long for ten times as many.
//
//     cmake/with-display.sh build/release/bench/equipment_bench

#include "catalogue/CVelmoProgramCommunicator.h"
#include "controls/UserPrompts.h"
#include "equipment/EquipmentList.h"
#include "platform/MFile.h"
#include "sample/EquipmentDatabaseFile.h"
#include "settings/DiagnosticLog.h"
#include "tests/support/TemporaryDesktop.h"
#include "ui/Grid.h"

#include <wx/app.h>
#include <wx/frame.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <string>
#include <vector>

namespace
{

using namespace velmo;
namespace fs = std::filesystem;

constexpr std::size_t kPerSection = 4;
constexpr int kRounds = 5;

class NoPrompts : public UserPrompts
{
    void Notify(PromptIcon, const std::string&, const std::string&) override {}
};

std::string NameOf(std::size_t number)
{
    return "maker" + std::to_string(number) + ".mdb";
}

std::string ListText(std::size_t databases)
{
    std::string text;
    for (std::size_t i = 0; i < databases; ++i)
    {
        if (i % kPerSection == 0)
        {
            text += "[Section " + std::to_string(i / kPerSection) +
                    "]\r\nMDBSetupFileSize=500000\r\nPictureSetupFilename=p" + std::to_string(i) +
                    ".exe\r\nDatePicturesModified=1/2/2024\r\nPictureSetupFileSize=900000\r\n";
        }
        const std::string number = std::to_string(i % kPerSection + 1);
        text += number + "ManufacturerName=Maker " + std::to_string(i) + "\r\n" + number +
                "MDBFilename=" + NameOf(i) + "\r\n" + number + "ReleaseDate=3/4/2024\r\n" + number +
                "AC=X\r\n" + number + "GasFurnace=X\r\n";
    }
    return text;
}

/// Links, so that 15,000 installed databases need no room of their own.
void Install(std::size_t databases, const fs::path& folder, const std::string& original)
{
    for (std::size_t i = 0; i < databases; ++i)
    {
        if (i % 10 < 3)
        {
            fs::create_hard_link(folder / original, folder / NameOf(i));
        }
    }
    for (std::size_t section = 0; section < databases / kPerSection; section += 3)
    {
        const fs::path pictures = folder / "EquipPic" / ("Section " + std::to_string(section));
        fs::create_directories(pictures);
        std::FILE* file = std::fopen((pictures / "PicInfo.ini").c_str(), "w");
        std::fprintf(file, "[Section %zu]\r\nDatePicturesModified=1/1/2023\r\n", section);
        std::fclose(file);
    }
}

double Milliseconds(std::size_t databases, wxFrame& frame)
{
    const test::TemporaryDesktop desktop;
    NoPrompts prompts;
    DiagnosticLog log(desktop.Folder() + "VelmoUpd.log");
    CVelmoProgramCommunicator locator(log, prompts);
    desktop.SetWinIniFolder("CommonDirectory", desktop.Folder());
    desktop.Write("original.mdb",
                  sample::EquipmentDatabaseFile("b.mdb", std::chrono::year{2023} / 5 / 6));
    const fs::path root = std::getenv("VELMO_HOME");
    Install(databases, root / "drive_c" / desktop.Folder().substr(3, desktop.Folder().size() - 4),
            "original.mdb");
    const std::string text = ListText(databases);
    EquipmentList equipment(locator, log);
    auto* grid = new Grid(&frame, equipment.Grid().Model(), [](std::size_t, std::size_t) {});
    grid->SetSize(frame.GetClientSize());
    wxYield();
    std::vector<double> times;
    for (int round = 0; round < kRounds; ++round)
    {
        const auto start = std::chrono::steady_clock::now();
        equipment.Show(std::make_shared<const ManufacturerList>(ParseManufacturerList(text, "")),
                       SharedValues::Read());
        grid->Update();
        const std::chrono::duration<double, std::milli> took =
            std::chrono::steady_clock::now() - start;
        times.push_back(took.count());
    }
    std::sort(times.begin(), times.end());
    std::printf("%6zu databases, %6d need an update: %8.1f ms (median of %d; least %.1f)\n",
                equipment.Grid().Model().Rows().RowCount(),
                equipment.CountDatabasesThatNeedUpdate(), times[kRounds / 2], kRounds,
                times.front());
    grid->Destroy();
    return times[kRounds / 2];
}

/// The toolkit's program: measures, prints and ends.
class Bench final : public wxApp
{
  public:
    bool OnInit() override { return true; }

    int OnRun() override
    {
        auto* frame = new wxFrame(nullptr, wxID_ANY, "Equipment", wxPoint(0, 0), wxSize(1000, 700));
        frame->Show();
        wxYield();
        const double few = Milliseconds(5'000, *frame);
        const double many = Milliseconds(50'000, *frame);
        std::printf("ratio %.1f\n", many / few);
        frame->Destroy();
        return 0;
    }
};

} // namespace

int main(int argc, char** argv)
{
    wxApp::SetInstance(new Bench);
    return wxEntry(argc, argv);
}
