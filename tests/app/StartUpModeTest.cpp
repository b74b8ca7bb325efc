#include "manager/FetchedFiles.h"
#include "platform/HeadlessLoop.h"
#include "platform/MFile.h"
#include "platform/Processes.h"
#include "tests/support/FaultServer.h"
#include "tests/support/LoopbackSocket.h"
#include "tests/support/ProgramDesktop.h"

#include <gmock/gmock.h>

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
class StartUpModeTest : public test::ProgramDesktop
{
  protected:
    StartUpModeTest()
    {
        m_desktop.SetPolicy("WebServer", m_server.Url(""));
        Install({8, 2, 15});
        WriteSettings("[Loadcalc 8]\r\nNotifyOfHVACEquipmentUpdateOnStartup=1 'True\r\n");
        m_server.Serve(kVersionListPath, kUpToDate);
        m_server.Serve("/pub/demo/manufver.ini", "[Coils]\r\n1MDBFilename=coils.mdb\r\n");
    }

    static platform::StartedProgram Start(const std::string& arguments)
    {
        const auto started = platform::StartProgram(MFile::FromCommandLine(VELMO_PROGRAM),
                                                    arguments, platform::WindowState::Normal);
        return started ? started.Value() : throw std::runtime_error(started.Failure().description);
    }

    int ExitCodeOf(const platform::StartedProgram& program)
    {
        m_loop.RunUntil([&program] { return !program.IsRunning(); });
        return program.ExitCode().value_or(-1);
    }

    FaultServer m_server;
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
    EXPECT_EQ(Settings(), "[Loadcalc 8]\r\nNotifyOfHVACEquipmentUpdateOnStartup=1 'True\r\n"
                          "CanCallCheckUpOnStartup=1 'True\r\n")
        << "the caller's mark, and no window's place";
    EXPECT_EQ(LogText(), "");
}

TEST_F(StartUpModeTest, ASecondRunEndsSilentlyWhileTheFirstOneLooks)
{
    m_server.Play(kVersionListPath,
                  {FaultServer::Hold(), FaultServer::Answer("200 OK", kUpToDate)[0]});
    const auto first = Start("STARTUP Loadcalc 8");
    m_server.AwaitRequest(kVersionListPath);
    EXPECT_EQ(ExitCodeOf(Start("STARTUP Wiring 2")), 0);
    EXPECT_TRUE(first.IsRunning());
    EXPECT_THAT(m_desktop.Read("VelmoUpd.ini"),
                testing::HasSubstr("[Wiring 2]\r\nCanCallCheckUpOnStartup=1 'True\r\n"));
    EXPECT_EQ(m_server.CountOf(kVersionListPath), 1) << "the second one asks nobody";
    m_server.Release(kVersionListPath);
    EXPECT_EQ(ExitCodeOf(first), 0);
}

TEST_F(StartUpModeTest, AServerThatCannotBeReachedIsOneLineInTheLogAndWithoutACallerItIsNotAsked)
{
    EXPECT_EQ(ExitCodeOf(Start("STARTUP")), 0);
    EXPECT_TRUE(m_server.Requests().empty());
    m_desktop.SetPolicy("WebServer", "http://127.0.0.1:" + std::to_string(test::ClosedPort()));
    EXPECT_EQ(ExitCodeOf(Start("/startup loadcalc 8")), 0);
    EXPECT_THAT(LogText(), testing::HasSubstr("version.ini"));
    EXPECT_EQ(std::ranges::count(LogText(), '\n'), 1);
}

} // namespace
} // namespace velmo
