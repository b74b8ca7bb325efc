#include "install/InstallProgress.h"
#include "install/SetupWatch.h"
#include "platform/HeadlessLoop.h"

#include <gtest/gtest.h>

#include <limits>
#include <tuple>

namespace velmo
{
namespace
{

TEST(InstallProgressTest, ABarSaysWhatHasComeAndRoundsAHalfToTheEvenPercent)
{
    constexpr double kInfinite = std::numeric_limits<double>::infinity();
    constexpr std::tuple<double, double, const char*, double> kCases[] = {
        {0, 200, "0 Bytes of 200 Bytes (0%)", 0},
        {1, 200, "1 Bytes of 200 Bytes (0%)", 0.005},
        {3, 200, "3 Bytes of 200 Bytes (2%)", 0.015},
        {5, 200, "5 Bytes of 200 Bytes (2%)", 0.025},
        {200, 200, "200 Bytes of 200 Bytes (100%)", 1},
        {300, 200, "300 Bytes of 200 Bytes (150%)", 1},
        {5, 0, "5 Bytes of 0 Bytes (0%)", 0},
        {5, -3, "5 Bytes of -3 Bytes (0%)", 0},
        {kInfinite, kInfinite, "0 Bytes of 0 Bytes (0%)", 0},
    };
    for (const auto& [received, total, text, filled] : kCases)
    {
        SCOPED_TRACE(text);
        const InstallBar bar = BarOfBytes(received, total);
        EXPECT_EQ(bar.text, text);
        EXPECT_DOUBLE_EQ(bar.FilledPart(), filled);
    }
}

TEST(SetupWatchTest, CallsOnceForWhatWasNotReplacedStoppedOrGone)
{
    platform::HeadlessLoop loop;
    int calls = 0;
    SetupWatch watch(loop, [&] { ++calls; });
    watch.Watch({});
    watch.Watch({});
    EXPECT_EQ(calls, 0);
    loop.RunUntil([&] { return calls > 0; });
    watch.Watch({});
    watch.Stop();
    {
        SetupWatch gone(loop, [&] { ++calls; });
        gone.Watch({});
    }
    loop.Yield();
    EXPECT_EQ(calls, 1);
}

} // namespace
} // namespace velmo
