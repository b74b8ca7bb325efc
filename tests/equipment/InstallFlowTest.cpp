#include "equipment/InstallFlow.h"

#include "platform/HeadlessLoop.h"
#include "tests/equipment/EquipmentDesktop.h"
#include "tests/support/FaultServer.h"
#include "tests/support/FolderLink.h"

#include <gmock/gmock.h>

#include <functional>
#include <stdexcept>

namespace velmo
{
namespace
{

using test::FaultServer;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::Not;
namespace MFile = platform::MFile;

class InstallFlowTest : public test::EquipmentDesktop, public InstallFlow::Observer
{
  protected:
    InstallFlowTest() { m_order.server = {m_server.Url(""), "/mdb/", "/pic/"}; }

    void OnBarsChanged() override { m_onBars(); }
    void OnStateChanged() override { m_states.push_back(m_flow->CurrentState()); }

    void OrderDatabase(const std::string& name, double size = 1000)
    {
        m_order.databases.files.Add(name, size, name);
        m_order.databases.bytes += size;
    }

    void Serve(const std::string& name) { m_server.Serve("/mdb/" + name, m_setup); }

    /// Lets an answer go on past its hold once @a done.
    void ReleaseWhen(const std::string& path, const std::function<bool()>& done)
    {
        m_loop.After(std::chrono::milliseconds(10), [this, path, done] {
            done() ? m_server.Release(path) : ReleaseWhen(path, done);
        });
    }

    InstallFlow& Flow()
    {
        if (!m_flow)
        {
            m_flow.emplace(std::move(m_order),
                           InstallFlow::Surroundings{m_loop, m_settings, m_log, m_common});
            m_flow->Observe(this);
        }
        return *m_flow;
    }

    void Run()
    {
        Flow().Start();
        m_loop.RunUntil([this] {
            return std::ranges::none_of(m_flow->Setups(),
                                        [](const auto& setup) { return setup.IsRunning(); });
        });
        EXPECT_EQ(Wizard(), "0 'False");
        EXPECT_EQ(m_flow->CurrentState(), InstallFlow::State::Ended);
        m_flow->Close();
        EXPECT_FALSE(MFile::FolderExists(m_temp));
    }

    [[nodiscard]] std::vector<std::string> Lines()
    {
        std::vector<std::string> lines;
        std::string_view text = Flow().Status().Text();
        while (!text.empty())
        {
            lines.emplace_back(text.substr(0, text.find("\r\n")));
            text.remove_prefix(lines.back().size() + 2);
        }
        return lines;
    }

    [[nodiscard]] std::string Downloading(const std::string& name, const char* folder = "/mdb/")
    {
        return "Downloading " + name + " from folder " + folder + " on server " + m_server.Url("");
    }

    [[nodiscard]] std::string Wizard() const
    {
        return m_settings.MyGetAppProfileString("SetupSettings", "NoHVACWizard", "");
    }

    /// What the setups wrote down.
    [[nodiscard]] std::string Record() const
    {
        const std::string path = m_common + "setups.log";
        return MFile::FileExists(path) ? m_desktop.Read(path) : "";
    }

    FaultServer m_server;
    platform::HeadlessLoop m_loop;
    std::string m_setup = m_desktop.Read(test::BuildMachinePath(VELMO_RECORDING_SETUP));
    std::string m_temp = m_common + "Temp\\";
    InstallOrder m_order;
    std::optional<InstallFlow> m_flow;
    std::function<void()> m_onBars = [] {};
    std::vector<InstallFlow::State> m_states;
};

TEST_F(InstallFlowTest, EachFileIsDownloadedAndItsSetupRunUnattended)
{
    OrderDatabase("alder.exe", 1500);
    m_order.pictures.files.Add("alderpic.exe", 2500, "alderpic.exe");
    m_order.pictures.bytes = 2500;
    Serve("alder.exe");
    // Only once the first setup has run and the second file's beginning has been shown.
    m_server.Play("/pic/alderpic.exe",
                  {FaultServer::Head(m_setup.size()), FaultServer::Send(m_setup.substr(0, 9)),
                   FaultServer::Hold(), FaultServer::Send(m_setup.substr(9))});
    ReleaseWhen("/pic/alderpic.exe", [this] {
        return !Record().empty() && Flow().CurrentBar().text.ends_with(" of 2 KB (0%)");
    });
    m_desktop.Write(m_temp + "planted.dll", "left from before");
    std::vector<std::string> bars;
    m_onBars = [&] {
        EXPECT_FALSE(MFile::FileExists(m_temp + "planted.dll") && bars.size() > 1);
        bars.push_back(Flow().OverallBar().text + " | " + Flow().CurrentBar().text);
    };
    EXPECT_EQ(Flow().CancelCaption(), "Cancel");
    EXPECT_TRUE(Flow().StartEnabled());
    Run();
    EXPECT_THAT(Lines(),
                ElementsAre("Databases to install: 1, Size: 1 KB",
                            "Picture groups to install: 1, Size: 2 KB",
                            "Ready.  Click Start to begin.", Downloading("alder.exe"), testing::_,
                            Downloading("alderpic.exe", "/pic/"),
                            testing::StartsWith("Current file download complete: "), "Finished",
                            "Total bytes downloaded: 4 KB", "Number of files requested: 2",
                            "Number of files actually downloaded and installed: 2"));
    EXPECT_THAT(Record(), HasSubstr("alder.exe /s unattended\n"));
    EXPECT_THAT(Record(), HasSubstr("alderpic.exe /s"));
    EXPECT_EQ(bars.front(), " | ");
    EXPECT_EQ(bars.at(1), "0% | ");
    EXPECT_EQ(bars.at(2), "0% | Connecting...");
    EXPECT_THAT(bars, testing::Contains("1 KB of 4 KB (38%) | 9 Bytes of 2 KB (0%)"));
    EXPECT_EQ(bars.back(), "Finished | Finished");
    EXPECT_EQ(Flow().CurrentBar().FilledPart(), 1);
    EXPECT_THAT(m_states, ElementsAre(InstallFlow::State::Running, InstallFlow::State::Ended));
    EXPECT_EQ(Flow().CancelCaption(), "Close");
    EXPECT_FALSE(Flow().StartEnabled());
    EXPECT_TRUE(Flow().CancelOrClose());
    Flow().Start();
    EXPECT_EQ(m_server.CountOf("/mdb/alder.exe"), 1);
}

TEST_F(InstallFlowTest, AFailedDownloadIsToldTwiceAndDoesNotStopTheOthers)
{
    OrderDatabase("gone.exe");
    OrderDatabase("byte.exe");
    OrderDatabase("empty.exe");
    OrderDatabase("good.exe", 3000);
    m_server.Serve("/mdb/byte.exe", "1");
    m_server.Serve("/mdb/empty.exe", "");
    Serve("good.exe");
    Run();
    const std::vector<std::string> lines = Lines();
    const std::string why = lines.at(6).substr(lines.at(6).find(": ") + 2);
    EXPECT_THAT((std::vector(lines.begin() + 3, lines.end())),
                ElementsAre(Downloading("gone.exe"), "Download failed: ", "Error Number: 12028",
                            "Error Description: " + why, "Error number: 12028",
                            "Error description: " + why, Downloading("byte.exe"),
                            "Current file download complete: 1 Bytes", "Error number: 1",
                            "Error description: Download failed.", Downloading("empty.exe"),
                            "Current file download complete: 0 Bytes", "Error number: 1",
                            "Error description: Download failed.", Downloading("good.exe"),
                            testing::_, "Finished", "Total bytes downloaded: 3 KB",
                            "Number of files requested: 4",
                            "Number of files actually downloaded and installed: 1",
                            "Not installed:", "  gone.exe: " + why, "  byte.exe: Download failed.",
                            "  empty.exe: Download failed."));
    EXPECT_EQ(Flow().Setups().size(), 1U);
    EXPECT_THAT(LogText(), HasSubstr("gone.exe"));
}

TEST_F(InstallFlowTest, ANameThatIsNoPlainOneIsNeitherFetchedNorRun)
{
    OrderDatabase("..\\alder.exe");
    OrderDatabase("nul.exe");
    OrderDatabase("a#1.exe");
    m_server.Serve("/mdb/a%231.exe", m_setup);
    Run();
    EXPECT_EQ(m_server.Requests().size(), 1U);
    EXPECT_THAT(Lines(), testing::Contains("..\\alder.exe: this is no plain file name"));
    EXPECT_THAT(Lines(), testing::Contains("  nul.exe: this is no plain file name"));
    EXPECT_THAT(Record(), HasSubstr("a#1.exe /s"));
}

TEST_F(InstallFlowTest, CancellingEndsTheDownloadAndStartsNoFurtherSetup)
{
    OrderDatabase("held.exe");
    OrderDatabase("next.exe");
    m_server.Play("/mdb/held.exe", {FaultServer::Head(m_setup.size()), FaultServer::Send("MZ"),
                                    FaultServer::Hold()});
    EXPECT_TRUE(Flow().CancelOrClose()) << "before the start it closes";
    EXPECT_EQ(Wizard(), "");
    m_onBars = [this] {
        if (Flow().CurrentBar().text.starts_with("2 Bytes"))
        {
            EXPECT_EQ(Wizard(), "1 'True");
            EXPECT_FALSE(Flow().CancelOrClose());
        }
    };
    Run();
    const std::vector<std::string> lines = Lines();
    EXPECT_THAT((std::vector(lines.end() - 4, lines.end())),
                ElementsAre("Canceled", "Total bytes downloaded: 0 Bytes",
                            "Number of files requested: 2",
                            "Number of files actually downloaded and installed: 0"));
    EXPECT_EQ(Flow().OverallBar().text, "Canceled");
    EXPECT_EQ(m_server.CountOf("/mdb/next.exe"), 0);
    EXPECT_TRUE(Flow().Setups().empty());
    EXPECT_EQ(Record(), "");
}

TEST_F(InstallFlowTest, AFaultInMidRunResetsTheWizardToo)
{
    OrderDatabase("alder.exe");
    Serve("alder.exe");
    m_onBars = [this] {
        if (Flow().CurrentBar().text == "Connecting...")
        {
            EXPECT_EQ(Wizard(), "1 'True");
            throw std::runtime_error("no more paint");
        }
    };
    Run();
    EXPECT_EQ(Lines().back(), "The installation broke off: no more paint");
}

TEST_F(InstallFlowTest, ALinkInTheFoldersPlaceIsNotFollowed)
{
    const std::string kept = m_desktop.Write("elsewhere\\kept.txt", "not ours");
    if (!test::MakeFolderLink(m_common + "Temp", m_desktop.Folder() + "elsewhere"))
    {
        GTEST_SKIP() << "This system makes no such links.";
    }
    OrderDatabase("gone.exe"); // Leaves the folder empty.
    OrderDatabase("late.exe");
    Serve("late.exe");
    std::size_t connections = 0;
    m_onBars = [&] {
        // Somebody puts the link back while the second file comes.
        if (Flow().CurrentBar().text == "Connecting..." && ++connections == 2)
        {
            EXPECT_FALSE(MFile::IsLink(m_temp));
            EXPECT_TRUE(MFile::RemoveFolder(m_temp));
            EXPECT_TRUE(test::MakeFolderLink(m_common + "Temp", m_desktop.Folder() + "elsewhere"));
        }
    };
    Run();
    EXPECT_EQ(MFile::FileNames(m_desktop.Folder() + "elsewhere").size(), 1U);
    EXPECT_TRUE(MFile::FileExists(kept));
    EXPECT_EQ(Lines().back(), "  late.exe: The folder " + m_temp + " is a link.");
    EXPECT_EQ(Flow().FilesInstalled(), 0);
}

TEST_F(InstallFlowTest, AFolderThatCannotBeWrittenAndASetupThatCannotRunAreTold)
{
    OrderDatabase("alder.exe");
    Serve("alder.exe");
    m_desktop.Write(m_common + "Temp", "a file in the folder's place");
    Flow().Start();
    EXPECT_EQ(Flow().FilesInstalled(), 0);
    EXPECT_THAT(Flow().Status().Text(), HasSubstr("The download folder could not be prepared: "));
    EXPECT_THAT(Flow().Status().Text(), HasSubstr("Not installed:\r\n  alder.exe: "));
    EXPECT_TRUE(MFile::DeleteIfExists(m_common + "Temp"));

    m_flow.reset();
    m_order = {{m_server.Url(""), "/mdb/", "/pic/"}, {}, {}};
    OrderDatabase("text.exe");
    m_server.Serve("/mdb/text.exe", "this is no program");
    Run();
    EXPECT_EQ(Flow().FilesInstalled(), 1);
    EXPECT_THAT(Lines().back(), testing::StartsWith("  text.exe: the setup could not be started"));
}

TEST_F(InstallFlowTest, WithoutACommonFolderNothingIsTouched)
{
    OrderDatabase("alder.exe");
    Serve("alder.exe");
    const std::string kept = m_desktop.Write("C:\\Temp\\velmo-test-kept.txt", "somebody else's");
    m_flow.emplace(std::move(m_order), InstallFlow::Surroundings{m_loop, m_settings, m_log, "\\"});
    m_flow->Start();
    m_flow->Close();
    EXPECT_EQ(Lines().back(), "  alder.exe: The vendor's common folder is not known.");
    EXPECT_TRUE(MFile::FileExists(kept));
    EXPECT_TRUE(MFile::DeleteIfExists(kept));
}

} // namespace
} // namespace velmo
