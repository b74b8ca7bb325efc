#include "app/CCheckOtherInstance.h"
#include "platform/MFile.h"
#include "platform/Processes.h"
#include "sample/EquipmentDatabaseFile.h"
#include "tests/support/OtherWindow.h"
#include "tests/support/TestSystem.h"
#include "tests/ui/WindowUnderTest.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace velmo::test
{
namespace
{

namespace MFile = platform::MFile;

constexpr char kQuestion[] = "View Available Updates?";
constexpr char kNotice[] = "Update Available";
constexpr char kReminder[] = "Reminder to Close Open Programs";
constexpr char kUnknown[] = "Update Status Unknown";
constexpr char kMainWindow[] = "Velmo Software Update Manager";

/// Another of the vendor's programs starts the real update manager, in a process of its own.
class CalledByProgramTest : public testing::Test
{
  protected:
    CalledByProgramTest()
    {
        using namespace std::chrono;
        m_desktop.InstallLoadcalc();
        m_desktop.desktop.Write("Common\\birchmere1.mdb",
                                sample::EquipmentDatabaseFile("birchmere1.mdb", 2025y / 1 / 2));
        m_desktop.WriteSettings(std::string(kNoAutoConnect) +
                                "[Loadcalc 8]\r\nNotifyOfHVACEquipmentUpdateOnStartup=1 'True\r\n");
    }

    /// What the vendor has: that revision of the program, and the database of that date.
    void Publish(const char* revision, const char* released)
    {
        m_desktop.ServeLists(std::string("[Loadcalc 8]\r\nMajor=8\r\nMinor=2\r\nRevision=") +
                                 revision + "\r\n",
                             std::string("[Birchmere]\r\n1ManufacturerName=Birchmere Comfort\r\n"
                                         "1MDBFilename=birchmere1.mdb\r\n1ReleaseDate=") +
                                 released + "\r\n");
    }

    static platform::StartedProgram Start(const char* program, const std::string& arguments)
    {
        const auto started = platform::StartProgram(MFile::FromCommandLine(program), arguments,
                                                    platform::WindowState::Normal);
        return started ? started.Value() : throw std::runtime_error(started.Failure().description);
    }

    static platform::StartedProgram StartLoadcalc()
    {
        return Start(VELMO_SAMPLE_PROGRAM, "--wait --update-manager " +
                                               MFile::FromCommandLine(VELMO_PROGRAM) +
                                               " Loadcalc 8");
    }

    void Await(const char* title)
    {
        WaitFor(m_loop, title, [title] { return IsOnScreen(title); });
    }

    int ExitCodeOf(const platform::StartedProgram& program)
    {
        WaitFor(m_loop, "the program's end", [&program] { return !program.IsRunning(); });
        return program.ExitCode().value_or(-1);
    }

    WindowDesktop m_desktop;
    WxMessageLoop m_loop;
};

TEST_F(CalledByProgramTest, AnUpdateOfTheProgramAloneIsTold)
{
    const std::string opened = m_desktop.desktop.Write("opened.txt", "");
    const auto browser = RegisterBrowser(opened);
    Publish("16", "1/2/2025");
    const auto program = StartLoadcalc();
    Await(kNotice);
    EXPECT_FALSE(IsOnScreen(kMainWindow));
    PressButton(kNotice, 'c');
    EXPECT_EQ(ExitCodeOf(program), 0);
    EXPECT_EQ(m_desktop.desktop.Read(opened), "");

    const auto again = StartLoadcalc();
    Await(kNotice);
    PressButton(kNotice, 'd');
    Await(kReminder);
    PressButton(kReminder, 'o');
    EXPECT_EQ(ExitCodeOf(again), 0);
    WaitFor(m_loop, "the setup in the browser", [&] {
        return m_desktop.desktop.Read(opened) == m_desktop.server.Url("/pub/demo/lc8setup.exe\n");
    });
}

TEST_F(CalledByProgramTest, EquipmentUpdatesAreAskedAboutAndNoEndsIt)
{
    Publish("15", "3/4/2026");
    const auto program = StartLoadcalc();
    Await(kQuestion);
    EXPECT_FALSE(IsOnScreen(kMainWindow));
    EXPECT_FALSE(platform::AskToComeForward(kInstanceName)) << "a silent start disturbs nobody";
    EXPECT_TRUE(platform::AskToComeForward(kSilentInstanceName)) << "a start by hand does";
    PressButton(kQuestion, 'n');
    EXPECT_EQ(ExitCodeOf(program), 0);
}

TEST_F(CalledByProgramTest, ASilentRunHandsOverToAPersonWhoStartsTheProgramByHand)
{
    m_desktop.server.Play("/pub/demo/version.ini", {FaultServer::Head(3), FaultServer::Hold()});
    const auto program = StartLoadcalc();
    m_desktop.server.AwaitRequest("/pub/demo/version.ini");
    const auto byHand = platform::StartProgram(MFile::FromCommandLine(VELMO_PROGRAM), "",
                                               platform::WindowState::Normal);
    ASSERT_TRUE(byHand);
    EXPECT_EQ(ExitCodeOf(byHand.Value()), 0);
    Await(kMainWindow);
    CloseByFrame(kMainWindow);
    EXPECT_EQ(ExitCodeOf(program), 0);
}

TEST_F(CalledByProgramTest, YesShowsTheMainWindow)
{
    Publish("16", "3/4/2026");
    const auto program = StartLoadcalc();
    Await(kQuestion);
    PressButton(kQuestion, 'y');
    Await(kMainWindow);
    EXPECT_FALSE(IsOnScreen(kQuestion));
    CloseByFrame(kMainWindow);
    EXPECT_EQ(ExitCodeOf(program), 0);
    EXPECT_NE(m_desktop.Setting("Main Window", "Left"), "(none)");
}

TEST_F(CalledByProgramTest, AProgramThatOpensTheWindowIsTrustedToStartItFromThenOn)
{
    const auto program = Start(VELMO_PROGRAM, "Loadcalc 8");
    Await(kUnknown);
    PressButton(kUnknown, 'o');
    CloseByFrame(kMainWindow);
    EXPECT_EQ(ExitCodeOf(program), 0);
    EXPECT_EQ(m_desktop.Setting("Loadcalc 8", "CanCallCheckUpOnStartup"), "1 'True");
}

TEST_F(CalledByProgramTest, ASecondStartBringsTheMinimisedFirstBack)
{
    CCheckOtherInstance instances;
    ASSERT_FALSE(instances.OtherInstanceRuns(kMainWindowCaption, kMainWindowClass));
    WindowUnderTest test;
    const platform::InstanceListener listener(kInstanceName, test.loop,
                                              [&] { return test.window->ComeForward(); });
    test.window->Open("");
    test.window->Iconize();
    test.WaitFor("the window to be minimised", [&] { return test.window->IsIconized(); });
    const auto second = Start(VELMO_PROGRAM, "");
    test.WaitFor("the window to come back", [&] { return !test.window->IsIconized(); });
    EXPECT_TRUE(test.window->IsShown());
    EXPECT_EQ(ExitCodeOf(second), 0);
}

} // namespace
} // namespace velmo::test
