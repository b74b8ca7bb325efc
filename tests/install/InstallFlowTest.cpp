#include "install/InstallFlow.h"

#include "install/SetupWatch.h"
#include "platform/HeadlessLoop.h"
#include "platform/MFile.h"
#include "tests/support/FaultServer.h"
#include "tests/support/ProgramDesktop.h"
#include "tests/support/TestSystem.h"
#include "text/ByteSizeText.h"

#include <gmock/gmock.h>

#include <functional>
#include <optional>
#include <regex>
#include <stdexcept>

namespace velmo
{
namespace
{

using test::FaultServer;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
namespace MFile = platform::MFile;

class InstallFlowTest : public test::ProgramDesktop, public InstallFlow::Observer
{
  protected:
    InstallFlowTest() { NewOrder(); }

    void NewOrder()
    {
        m_flow.reset();
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
        EXPECT_FALSE(MFile::FolderExists(m_temp));
        m_flow->Close();
    }

    /// What the flow has told, but for how many setups still ran: that is the machine's affair.
    [[nodiscard]] std::string Told()
    {
        return std::regex_replace(Flow().Status().Text(), std::regex("Waiting for [^\n]*\n|\r"),
                                  "");
    }

    [[nodiscard]] std::string Downloading(const std::string& name, const char* folder = "/mdb/")
    {
        return "Downloading " + name + " from folder " + folder + " on server " + m_server.Url("") +
               "\n";
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

    const std::string& m_common = m_desktop.Folder();
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
    const std::string all = ByteSizeText(size);
    const std::string complete = "Current file download complete: " + all + "\n";
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
    EXPECT_EQ(Told(), "Databases to install: 1, Size: " + all +
                          "\nPicture groups to install: 1, Size: " + all +
                          "\nReady.  Click Start to begin.\n" + Downloading("alder.exe") +
                          complete + Downloading("alderpic.exe", "/pic/") + complete +
                          "Finished\nTotal bytes downloaded: " + ByteSizeText(2 * size) +
                          "\nNumber of files requested: 2\nNumber of files actually downloaded and "
                          "installed: 2\nSetups that ended well: 2, that did not: 0\n");
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
    OrderDatabase("long.exe", 100);
    OrderDatabase("good.exe", static_cast<double>(m_setup.size()));
    m_server.Serve("/mdb/byte.exe", "1");
    m_server.Serve("/mdb/empty.exe", "");
    m_server.Serve("/mdb/short.exe", "too short");
    m_server.Play("/mdb/long.exe",
                  {FaultServer::Head(1U << 30), FaultServer::Send(std::string(4000, 'm')),
                   FaultServer::Hold()});
    Serve("good.exe");
    Run();
    const std::string text = Told();
    const std::size_t start = text.find("Error Description: ") + 19;
    const std::string why = text.substr(start, text.find('\n', start) + 1 - start);
    const std::string failed = "Error number: 1\nError description: Download failed.\n";
    EXPECT_THAT(text,
                HasSubstr(Downloading("gone.exe") +
                          "Download failed: \nError Number: 12028\nError Description: " + why +
                          "Error number: 12028\nError description: " + why +
                          Downloading("byte.exe") + "Current file download complete: 1 Bytes\n" +
                          failed + Downloading("empty.exe") +
                          "Current file download complete: 0 Bytes\n" + failed));
    EXPECT_THAT(text, HasSubstr("Number of files requested: 6\nNumber of files actually downloaded "
                                "and installed: 1\nNot installed:\n  gone.exe: " +
                                why +
                                "  byte.exe: Download failed.\n  empty.exe: Download failed.\n  "
                                "short.exe: The file is not as large as it is listed: 9 instead of "
                                "1000000 bytes.\n  long.exe: The file is not as large as it is"));
    EXPECT_THAT(text, EndsWith("Setups that ended well: 1, that did not: 0\n"));
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
    EXPECT_THAT(Told(), HasSubstr("\n..\\alder.exe: this is no plain file name\n"));
    EXPECT_THAT(Told(), HasSubstr("\n  nul.exe: this is no plain file name\n"));
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
    EXPECT_THAT(Told(), EndsWith("\nCanceled\nTotal bytes downloaded: 0 Bytes\nNumber of files "
                                 "requested: 2\nNumber of files actually downloaded and installed: "
                                 "0\nSetups that ended well: 0, that did not: 0\n"));
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
    EXPECT_THAT(Told(), EndsWith("well: 1, that did not: 1 (bad.exe: exit code 3)\n"));
}

TEST_F(InstallFlowTest, TheWaitEndsByCancelAndByItself)
{
    for (const bool cancels : {true, false})
    {
        SCOPED_TRACE(cancels);
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
        EXPECT_THAT(Told(), HasSubstr("\nFinished\n"));
        EXPECT_THAT(Told(), EndsWith("well: 0, that did not: 1 (alder.exe: still runs)\n"));
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
        EXPECT_FALSE(MFile::FolderExists(m_temp));
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
    EXPECT_THAT(Told(), EndsWith("\nThe installation broke off: no more paint\n"));
}

TEST_F(InstallFlowTest, ALinkInTheFoldersPlaceIsNotFollowed)
{
    const std::string kept = m_desktop.Write("elsewhere\\kept.txt", "not ours");
    const auto link = [this] {
        std::error_code refused;
        std::filesystem::create_directory_symlink(m_desktop.Native("elsewhere"),
                                                  m_desktop.Native("Temp"), refused);
        return !refused;
    };
    if (!link())
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
            EXPECT_TRUE(link());
        }
    };
    Run();
    EXPECT_EQ(MFile::FileNames(m_desktop.Folder() + "elsewhere").Value().size(), 1U);
    EXPECT_TRUE(MFile::FileExists(kept));
    EXPECT_THAT(Told(), HasSubstr("\n  late.exe: The folder " + m_temp + " is a link.\n"));
    EXPECT_EQ(Flow().FilesInstalled(), 0);
}

TEST_F(InstallFlowTest, AFolderThatCannotBeWrittenAndASetupThatCannotRunAreTold)
{
    OrderDatabase("alder.exe");
    Serve("alder.exe");
    m_desktop.Write(m_common + "Temp", "a file in the folder's place");
    Flow().Start();
    EXPECT_EQ(Flow().FilesInstalled(), 0);
    EXPECT_THAT(Told(), HasSubstr("The download folder could not be prepared: "));
    EXPECT_THAT(Told(), HasSubstr("Not installed:\n  alder.exe: "));
    EXPECT_TRUE(MFile::DeleteIfExists(m_common + "Temp"));

    NewOrder();
    OrderDatabase("text.exe");
    m_server.Serve("/mdb/text.exe", "this is no program");
    Run();
    EXPECT_EQ(Flow().FilesInstalled(), 1);
    EXPECT_THAT(Told(), HasSubstr("\n  text.exe: the setup could not be started"));
}

TEST_F(InstallFlowTest, WithoutACommonFolderNothingIsTouched)
{
    OrderDatabase("alder.exe");
    Serve("alder.exe");
    const std::string kept = m_desktop.Write("C:\\Temp\\velmo-test-kept.txt", "somebody else's");
    m_flow.emplace(std::move(m_order), InstallFlow::Surroundings{m_loop, m_settings, m_log, "\\"});
    m_flow->Start();
    m_flow->Close();
    EXPECT_THAT(Told(), HasSubstr("\n  alder.exe: The vendor's common folder is not known.\n"));
    EXPECT_TRUE(MFile::FileExists(kept));
    EXPECT_TRUE(MFile::DeleteIfExists(kept));
}

} // namespace
} // namespace velmo
