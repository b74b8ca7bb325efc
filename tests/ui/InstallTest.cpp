#include "app/EquipmentPage.h"
#include "equipment/EquipmentList.h"
#include "platform/MFile.h"
#include "sample/EquipmentDatabaseFile.h"
#include "sample/SetupPayload.h"
#include "tests/ui/WindowUnderTest.h"
#include "ui/ProgressPicture.h"

#include <gtest/gtest.h>

#include <wx/menu.h>
#include <wx/textctrl.h>

#include <chrono>
#include <functional>
#include <string>

namespace velmo::test
{
namespace
{

namespace MFile = platform::MFile;

constexpr char kList[] =
    "[Birchmere]\r\nMDBSetupFileSize=8000000\r\n1MDBFilename=birchmere1.mdb\r\n"
    "1ReleaseDate=3/4/2026\r\n"
    "[Ashgrove]\r\nMDBSetupFileSize=300000\r\n1MDBFilename=ashgrove1.mdb\r\n"
    "1ReleaseDate=5/6/2026\r\n";
constexpr char kSetupPath[] = "/pub/mervala/mdb/birchmere.exe";
constexpr std::size_t kSetupSize = 8'000'000;

std::string DatabaseOf(std::chrono::year_month_day released)
{
    return sample::EquipmentDatabaseFile("birchmere1.mdb", released);
}

class InstallTest : public testing::Test
{
  protected:
    InstallTest()
    {
        using namespace std::chrono;
        m_desktop.ServeLists("[News Headlines]\r\n", "[Manufver General]\r\nServer Address HTTP=" +
                                                         m_desktop.server.Url("") + "\r\n" + kList);
        m_desktop.desktop.Write("Common\\birchmere1.mdb", DatabaseOf(2025y / 1 / 2));
    }

    /// The text of the only row's cell.
    std::string Cell(WindowUnderTest& test, EquipmentColumn column) const
    {
        return test.manager.Equipment().Grid().Text(0, column);
    }

    /// Fetches, ticks by that command and presses "&Install..."; in the dialog, does what
    /// @a person does. Returns when the dialog has closed.
    void Install(WindowUnderTest& test, const char* command,
                 const std::function<void(wxWindow&)>& person)
    {
        test.loop.holds = false;
        test.OpenAndFetch();
        ASSERT_EQ(test.manager.Shown().Counts().databases, 1);
        ASSERT_EQ(Cell(test, EquipmentColumn::DatabaseInstalled), "1/2/2025");
        ASSERT_EQ(Cell(test, EquipmentColumn::DatabaseNeedsUpdate), "Yes");
        wxMenu menu;
        test.Find<EquipmentPage>("picHoldEquipment").FillMarkMenu(menu);
        Choose(menu, command);
        WhenShown("frmInstallMDB", person);
        test.Press("cmdInstallMDBs");
    }

    WindowDesktop m_desktop;
};

TEST_F(InstallTest, WhatIsTickedIsDownloadedInstalledAndShownAsInstalled)
{
    using namespace std::chrono;
    const auto setup = MFile::ReadAll(MFile::FromCommandLine(VELMO_SETUP_PROGRAM));
    m_desktop.server.Serve(kSetupPath,
                           sample::WithPayload(setup.Value(),
                                               {{"birchmere1.mdb", DatabaseOf(2026y / 3 / 4)}},
                                               kSetupSize));
    WindowUnderTest test;
    std::string lines;
    std::string overall;
    Install(test, "Mark All Databases that Need Updating", [&](wxWindow& dialog) {
        Press(dialog, "cmdStart");
        overall = Find<ProgressPicture>(dialog, "picOverall").Text().utf8_string();
        lines = Find<wxTextCtrl>(dialog, "txtStatus").GetValue().utf8_string();
        Press(dialog, "cmdCancel");
    });
    EXPECT_EQ(overall, "Finished");
    EXPECT_NE(lines.find("Number of files actually downloaded and installed: 1"), std::string::npos)
        << lines;
    test.WaitFor("the setup's end and the second look",
                 [&] { return Cell(test, EquipmentColumn::DatabaseInstalled) == "3/4/2026"; });
    EXPECT_EQ(Cell(test, EquipmentColumn::DatabaseNeedsUpdate), "No");
    EXPECT_EQ(test.manager.Shown().Counts().databases, 0);
    EXPECT_EQ(m_desktop.Setting("SetupSettings", "NoHVACWizard"), "0 'False");
    test.WaitFor("the download folder's end",
                 [&] { return !MFile::FolderExists(m_desktop.desktop.Folder() + "Common\\Temp"); });
}

TEST_F(InstallTest, EscapeDuringADownloadStartsNoSetupAndClosesOnceThatHasEnded)
{
    using namespace std::chrono;
    m_desktop.server.Play(
        kSetupPath, {FaultServer::Head(kSetupSize), FaultServer::Send("MZ"), FaultServer::Hold()});
    WindowUnderTest test;
    Install(test, "Mark All Databases", [&](wxWindow& dialog) {
        When(
            [&] {
                return m_desktop.server.CountOf(kSetupPath) == 1 &&
                       Find<ProgressPicture>(dialog, "picCurrent").Text().Contains("%");
            },
            [&] {
                EXPECT_FALSE(Find<wxButton>(dialog, "cmdStart").IsEnabled());
                EXPECT_TRUE(Find<wxButton>(dialog, "cmdCancel").HasFocus()) << "keys arrive";
                EXPECT_EQ(Find<ProgressPicture>(dialog, "picCurrent").Text(),
                          "2 Bytes of 7.6 MB (0%)");
                EXPECT_EQ(Find<ProgressPicture>(dialog, "picOverall").Text(),
                          "2 Bytes of 7.9 MB (0%)");
                wxKeyEvent escape(wxEVT_CHAR_HOOK);
                escape.m_keyCode = WXK_ESCAPE;
                dialog.GetEventHandler()->ProcessEvent(escape);
                EXPECT_TRUE(dialog.IsShown()) << "the download ends first";
                dialog.Close();
            });
        Press(dialog, "cmdStart");
    });
    EXPECT_EQ(wxWindow::FindWindowByName("frmInstallMDB"), nullptr);
    EXPECT_EQ(Cell(test, EquipmentColumn::DatabaseInstalled), "1/2/2025");
    EXPECT_EQ(m_desktop.Setting("SetupSettings", "NoHVACWizard"), "0 'False");
    EXPECT_FALSE(MFile::FolderExists(m_desktop.desktop.Folder() + "Common\\Temp"));
}

} // namespace
} // namespace velmo::test
