#include "app/CCheckOtherInstance.h"
#include "platform/MFile.h"
#include "platform/Processes.h"
#include "tests/ui/WindowUnderTest.h"

#include <gtest/gtest.h>

namespace velmo::test
{
namespace
{

TEST(TwoProcessTest, ASecondStartBringsTheMinimisedFirstBack)
{
    WindowDesktop desktop;
    CCheckOtherInstance instances;
    ASSERT_FALSE(instances.OtherInstanceRuns(kMainWindowCaption, kMainWindowClass));
    WindowUnderTest test;
    const platform::InstanceListener listener(kInstanceName, test.loop,
                                              [&] { return test.window->ComeForward(); });
    test.window->Open("");
    test.window->Iconize();
    test.WaitFor("the window to be minimised", [&] { return test.window->IsIconized(); });

    const auto started = platform::StartProgram(platform::MFile::FromCommandLine(VELMO_PROGRAM), "",
                                                platform::WindowState::Normal);
    ASSERT_TRUE(started) << started.Failure().description;
    test.WaitFor("the window to come back", [&] { return !test.window->IsIconized(); });
    EXPECT_TRUE(test.window->IsShown());
    test.WaitFor("the second's end", [&] { return !started.Value().IsRunning(); });
    EXPECT_EQ(started.Value().ExitCode(), 0);
}

} // namespace
} // namespace velmo::test
