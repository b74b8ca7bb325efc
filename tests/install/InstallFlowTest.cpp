#include "install/InstallFlow.h"

#include "install/SetupWatch.h"
#include "platform/HeadlessLoop.h"
#include "platform/MFile.h"
#include "settings/CINIFileHandler.h"
#include "settings/DiagnosticLog.h"
#include "tests/support/FaultServer.h"
#include "tests/support/TemporaryDesktop.h"
#include "tests/support/TestSystem.h"
#include "text/ByteSizeText.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <optional>
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

class InstallFlowTest : public testing::Test, public InstallFlow::Observer
{
  protected:
    InstallFlowTest()
    {
        EXPECT_TRUE(MFile::CreateFolders(m_common));
        m_settings.AppProfileFileName(m_common + "VelmoUpd.ini");
        NewOrder();
    }

    void NewOrder()
    {
        m_order = {m_server.Url(""), {}};
        m_order.setups.resize(2);
        m_order.setups[0].title = "Databases to install";
        m_order.setups[0].folder = "/mdb/";
        m_order.setups[1].title = "Picture groups to install";
        m_order.setups[1].folder = "/pic/";
    }

    void OnBarsChanged() override { m_onBars(); }
    void OnStateChanged() override { m_states.push_back(m_flow->CurrentState()); }

    /// Without a size the list names none.
    void OrderDatabase(const std::string& name, double size = 0)
    {
        m_order.setups[0].Add(name, size);
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
            m_flow.emplace(
                std::move(m_order),
                InstallFlow::Surroundings{m_loop, m_settings, m_log, m_common, {}, m_longestWait});
            m_flow->Observe(this);
        }
        return *m_flow;
    }

    void Run()
    {
        Flow().Start();
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

    [[nodiscard]] std::string LogText() const
    {
        return MFile::FileExists(m_log.Path()) ? m_desktop.Read(m_log.Path()) : "";
    }

    test::TemporaryDesktop m_desktop;
    std::string m_common = m_desktop.Folder() + "Common\\";
    DiagnosticLog m_log{m_desktop.Folder() + "VelmoUpd.log"};
    CINIFileHandler m_settings{m_log};
    FaultServer m_server;
    platform::HeadlessLoop m_loop;
    std::string m_setup = m_desktop.Read(test::BuildMachinePath(VELMO_RECORDING_SETUP));
    std::string m_temp = m_common + "Temp\\";
    InstallOrder m_order;
    std::optional<InstallFlow> m_flow;
    std::chrono::milliseconds m_longestWait = std::chrono::minutes(15);
    std::function<void()> m_onBars = [] {};
    std::vector<InstallFlow::State> m_states;
};

TEST_F(InstallFlowTest, EachFileIsDownloadedAndItsSetupRunUnattended)
{
    const auto size = static_cast<double>(m_setup.size());
    OrderDatabase("alder.exe", size);
    m_order.setups[1].Add("alderpic.exe", size);
    Serve("alder.exe");
    // Only once the first setup has run and the second file's beginning has been shown.
    m_server.Play("/pic/alderpic.exe",
                  {FaultServer::Head(m_setup.size()), FaultServer::Send(m_setup.substr(0, 9)),
                   FaultServer::Hold(), FaultServer::Send(m_setup.substr(9))});
    ReleaseWhen("/pic/alderpic.exe", [this] {
        return !Record().empty() && Flow().CurrentBar().text.starts_with("9 Bytes of ");
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
    auto lines = Lines();
    // How many setups still run by then is the machine's affair; a test of its own waits for some.
    std::erase_if(lines, [](const auto& line) { return line.starts_with("Waiting for "); });
    EXPECT_THAT(lines, ElementsAre("Databases to install: 1, Size: " + ByteSizeText(size),
                                   "Picture groups to install: 1, Size: " + ByteSizeText(size),
                                   "Ready.  Click Start to begin.", Downloading("alder.exe"),
                                   testing::_, Downloading("alderpic.exe", "/pic/"),
                                   testing::StartsWith("Current file download complete: "),
                                   "Finished", "Total bytes downloaded: " + ByteSizeText(2 * size),
                                   "Number of files requested: 2",
                                   "Number of files actually downloaded and installed: 2",
                                   "Setups that ended well: 2, that did not: 0"));
    EXPECT_EQ(Record(), "alder.exe /s unattended\nalderpic.exe /s unattended\n");
    EXPECT_EQ(bars.front(), " | ");
    EXPECT_EQ(bars.at(1), "0% | ");
    EXPECT_EQ(bars.at(2), "0% | Connecting...");
    EXPECT_THAT(bars, testing::Contains(BarOfBytes(size + 9, 2 * size).text + " | " +
                                        BarOfBytes(9, size).text));
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
    OrderDatabase("short.exe", 1e6);
    m_server.Serve("/mdb/short.exe", "too short");
    OrderDatabase("long.exe", 100);
    m_server.Play("/mdb/long.exe", {FaultServer::Head(1U << 30), FaultServer::Send("many", 1000),
                                    FaultServer::Hold()});
    OrderDatabase("good.exe", static_cast<double>(m_setup.size()));
    m_server.Serve("/mdb/byte.exe", "1");
    m_server.Serve("/mdb/empty.exe", "");
    Serve("good.exe");
    Run();
    const std::vector<std::string> lines = Lines();
    const std::string why = lines.at(6).substr(lines.at(6).find(": ") + 2);
    EXPECT_THAT((std::vector(lines.begin() + 3, lines.begin() + 17)),
                ElementsAre(Downloading("gone.exe"), "Download failed: ", "Error Number: 12028",
                            "Error Description: " + why, "Error number: 12028",
                            "Error description: " + why, Downloading("byte.exe"),
                            "Current file download complete: 1 Bytes", "Error number: 1",
                            "Error description: Download failed.", Downloading("empty.exe"),
                            "Current file download complete: 0 Bytes", "Error number: 1",
                            "Error description: Download failed."));
    EXPECT_THAT((std::vector(lines.end() - 9, lines.end())),
                ElementsAre("Number of files requested: 6",
                            "Number of files actually downloaded and installed: 1",
                            "Not installed:", "  gone.exe: " + why, "  byte.exe: Download failed.",
                            "  empty.exe: Download failed.",
                            "  short.exe: The file is not as large as it is listed: 9 instead of "
                            "1000000 bytes.",
                            testing::StartsWith("  long.exe: The file is not as large as it is"),
                            "Setups that ended well: 1, that did not: 0"));
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
    EXPECT_THAT((std::vector(lines.end() - 5, lines.end())),
                ElementsAre("Canceled", "Total bytes downloaded: 0 Bytes",
                            "Number of files requested: 2",
                            "Number of files actually downloaded and installed: 0",
                            "Setups that ended well: 0, that did not: 0"));
    EXPECT_EQ(Flow().OverallBar().text, "Canceled");
    EXPECT_EQ(m_server.CountOf("/mdb/next.exe"), 0);
    EXPECT_EQ(Record(), "");
}

TEST_F(InstallFlowTest, TheFlowWaitsForTheSetupsThatStillRunAndTellsHowTheyEnded)
{
    OrderDatabase("alder.exe");
    OrderDatabase("bad.exe");
    Serve("alder.exe");
    Serve("bad.exe");
    const std::string hold = m_desktop.Write(m_common + "hold.txt", "");
    bool waited = false;
    const auto heard = Flow().Status().Changed().Add([&] {
        if (Flow().Status().Text().ends_with("Waiting for 2 setups that still run.\r\n"))
        {
            m_loop.Post([&] {
                waited = true;
                EXPECT_EQ(Wizard(), "1 'True");
                EXPECT_TRUE(MFile::FolderExists(m_temp));
                EXPECT_EQ(Flow().RunningSetups().size(), 2U);
                EXPECT_TRUE(MFile::DeleteIfExists(hold));
            });
        }
    });
    Run();
    EXPECT_TRUE(waited);
    EXPECT_THAT(Record(), HasSubstr("alder.exe /s unattended\n"));
    EXPECT_THAT(Record(), HasSubstr("bad.exe /s unattended\n"));
    EXPECT_EQ(Lines().back(), "Setups that ended well: 1, that did not: 1 (bad.exe: exit code 3)");
}

TEST_F(InstallFlowTest, TheWaitEndsByCancelAndByItself)
{
    for (const bool cancels : {true, false})
    {
        SCOPED_TRACE(cancels);
        m_flow.reset();
        NewOrder();
        OrderDatabase("alder.exe");
        Serve("alder.exe");
        const std::string hold = m_desktop.Write(m_common + "hold.txt", "");
        m_longestWait = std::chrono::milliseconds(cancels ? 900'000 : 0);
        const auto heard = Flow().Status().Changed().Add([&] {
            if (cancels && Flow().Status().Text().ends_with("still runs.\r\n"))
            {
                m_loop.Post([&] { EXPECT_FALSE(Flow().CancelOrClose()); });
            }
        });
        Flow().Start();
        EXPECT_EQ(Wizard(), "0 'False");
        EXPECT_THAT(Lines(), testing::Contains("Finished"));
        EXPECT_EQ(Lines().back(),
                  "Setups that ended well: 0, that did not: 1 (alder.exe: still runs)");
        ASSERT_EQ(Flow().RunningSetups().size(), 1U);

        // Nor does a watch wait for ever, but else until they have ended.
        int calls = 0;
        SetupWatch brief(
            m_loop, [&] { ++calls; }, std::chrono::milliseconds(0));
        brief.Watch(Flow().RunningSetups());
        m_loop.RunUntil([&] { return calls == 1; });
        EXPECT_EQ(Flow().RunningSetups().size(), 1U);
        SetupWatch watch(m_loop, [&] {
            ++calls;
            EXPECT_TRUE(Flow().RunningSetups().empty());
        });
        watch.Watch(Flow().RunningSetups());
        m_loop.Yield();
        EXPECT_EQ(calls, 1);
        EXPECT_TRUE(MFile::DeleteIfExists(hold));
        m_loop.RunUntil([&] { return calls == 2; });
        Flow().Close();
    }
}

TEST_F(InstallFlowTest, WhatAKilledRunLeftIsMended)
{
    MendInterruptedInstall(m_settings, m_common, m_log);
    EXPECT_EQ(Wizard(), "") << "nothing to mend";
    EXPECT_EQ(LogText(), "");
    m_settings.MyWriteAppProfileBoolean("SetupSettings", "NoHVACWizard", true);
    m_desktop.Write(m_temp + "alder.exe", "left");
    MendInterruptedInstall(m_settings, m_common, m_log);
    EXPECT_EQ(Wizard(), "0 'False");
    EXPECT_FALSE(MFile::FolderExists(m_temp));
    EXPECT_THAT(LogText(), HasSubstr("An installation was broken off"));
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
    EXPECT_THAT(Lines(), testing::Contains("  late.exe: The folder " + m_temp + " is a link."));
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
    NewOrder();
    OrderDatabase("text.exe");
    m_server.Serve("/mdb/text.exe", "this is no program");
    Run();
    EXPECT_EQ(Flow().FilesInstalled(), 1);
    EXPECT_THAT(Lines(), testing::Contains(
                             testing::StartsWith("  text.exe: the setup could not be started")));
}

TEST_F(InstallFlowTest, WithoutACommonFolderNothingIsTouched)
{
    OrderDatabase("alder.exe");
    Serve("alder.exe");
    const std::string kept = m_desktop.Write("C:\\Temp\\velmo-test-kept.txt", "somebody else's");
    m_flow.emplace(std::move(m_order), InstallFlow::Surroundings{m_loop, m_settings, m_log, "\\"});
    m_flow->Start();
    m_flow->Close();
    EXPECT_THAT(Lines(),
                testing::Contains("  alder.exe: The vendor's common folder is not known."));
    EXPECT_TRUE(MFile::FileExists(kept));
    EXPECT_TRUE(MFile::DeleteIfExists(kept));
}

} // namespace
} // namespace velmo
