#include "manager/FetchedFiles.h"
#include "platform/HeadlessLoop.h"
#include "platform/MFile.h"
#include "platform/Processes.h"
#include "sample/SampleImage.h"
#include "tests/support/FaultServer.h"
#include "tests/support/LoopbackSocket.h"
#include "tests/support/TemporaryDesktop.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <stdexcept>

namespace velmo
{
namespace
{

using test::FaultServer;
namespace MFile = platform::MFile;

constexpr char kVersionListPath[] = "/pub/demo/version.ini";
constexpr char kUpToDate[] = "[Loadcalc 8]\r\nMajor=8\r\nMinor=2\r\nRevision=15\r\n";

/// A desktop with Loadcalc 8, which starts the update manager and wants equipment checked too.
class StartUpModeTest : public testing::Test
{
  protected:
    StartUpModeTest()
    {
        m_desktop.SetWinIniFolder("CommonDirectory", m_desktop.Folder());
        m_desktop.SetWinIniFolder("LoadcalcDirectory", m_desktop.Folder());
        m_desktop.SetPolicy("WebServer", m_server.Url(""));
        m_desktop.Write(
            "Loadcalc8.exe",
            sample::WriteSampleImage({"Loadcalc", "Loadcalc", "Loadcalc8.exe", {8, 2, 15}}));
        m_desktop.Write("VelmoUpd.ini",
                        "[Loadcalc 8]\r\nNotifyOfHVACEquipmentUpdateOnStartup=1 'True\r\n");
        m_server.Serve(kVersionListPath, kUpToDate);
        m_server.Serve("/pub/demo/manufver.ini", "[Coils]\r\nNumberOfMDBFiles=0\r\n");
    }

    static platform::StartedProgram Start(const std::string& arguments)
    {
        const auto started = platform::StartProgram(MFile::FromCommandLine(VELMO_PROGRAM),
                                                    arguments, platform::WindowState::Normal);
        if (!started)
        {
            throw std::runtime_error(started.Failure().description);
        }
        return started.Value();
    }

    int ExitCodeOf(const platform::StartedProgram& program)
    {
        m_loop.RunUntil([&program] { return !program.IsRunning(); });
        return program.ExitCode().value_or(-1);
    }

    [[nodiscard]] std::string Log() const
    {
        const auto log = MFile::ReadAll(m_desktop.Folder() + "VelmoUpd.log");
        return log ? log.Value() : std::string();
    }

    FaultServer m_server;
    const test::TemporaryDesktop m_desktop;
    platform::HeadlessLoop m_loop;
};

/// Where the program's list files are when it lies where it was built.
FetchedFiles ProgramsLists()
{
    const std::string program = MFile::FullPath(MFile::FromCommandLine(VELMO_PROGRAM));
    const bool isWindowsPath = program.find('\\') != std::string::npos && program[1] == ':';
    return FetchedFiles(isWindowsPath ? program.substr(0, program.rfind('\\') + 1)
                                      : "C:\\Program Files\\Velmo Software\\Update Manager\\");
}

TEST_F(StartUpModeTest, WithNothingToSayTheProgramEndsAndLeavesNothing)
{
    EXPECT_EQ(ExitCodeOf(Start("STARTUP Loadcalc 8")), 0);
    EXPECT_EQ(m_server.CountOf(kVersionListPath), 1);
    EXPECT_EQ(m_server.CountOf("/pub/demo/manufver.ini"), 1);
    EXPECT_FALSE(MFile::FileExists(ProgramsLists().versionList));
    EXPECT_FALSE(MFile::FileExists(ProgramsLists().manufacturerList));
    EXPECT_EQ(m_desktop.Read("VelmoUpd.ini"),
              "[Loadcalc 8]\r\nNotifyOfHVACEquipmentUpdateOnStartup=1 'True\r\n"
              "CanCallCheckUpOnStartup=1 'True\r\n")
        << "the caller's mark, and no window's place";
    EXPECT_EQ(Log(), "");
}

TEST_F(StartUpModeTest, ASecondRunEndsSilentlyWhileTheFirstOneLooks)
{
    m_server.Play(kVersionListPath,
                  {FaultServer::Hold(), FaultServer::Answer("200 OK", kUpToDate)[0]});
    const auto first = Start("STARTUP Loadcalc 8");
    m_server.AwaitRequest(kVersionListPath);
    EXPECT_EQ(ExitCodeOf(Start("STARTUP Loadcalc 8")), 0);
    EXPECT_TRUE(first.IsRunning());
    EXPECT_EQ(m_server.CountOf(kVersionListPath), 1) << "the second one asks nobody";
    m_server.Release(kVersionListPath);
    EXPECT_EQ(ExitCodeOf(first), 0);
}

TEST_F(StartUpModeTest, AServerThatCannotBeReachedIsOneLineInTheLog)
{
    m_desktop.SetPolicy("WebServer", "http://127.0.0.1:" + std::to_string(test::ClosedPort()));
    EXPECT_EQ(ExitCodeOf(Start("/startup loadcalc 8")), 0);
    EXPECT_THAT(Log(), testing::HasSubstr("version.ini"));
    EXPECT_EQ(std::ranges::count(Log(), '\n'), 1);
}

TEST_F(StartUpModeTest, ARunWithoutACallerAsksNobody)
{
    EXPECT_EQ(ExitCodeOf(Start("STARTUP")), 0);
    EXPECT_TRUE(m_server.Requests().empty());
}

} // namespace
} // namespace velmo
