#include "updates/ProgramRow.h"

#include <gtest/gtest.h>

#include <tuple>

namespace velmo
{
namespace
{

TEST(ProgramVersionTest, AnotherMajorNumberOrALowerMinorOrRevisionNeedsAnUpdate)
{
    constexpr struct
    {
        ProgramVersion installed;
        ProgramVersion latest;
        bool upToDate;
    } kRows[] = {
        {{8, 2, 15}, {8, 2, 15}, true},  {{8, 2, 14}, {8, 2, 15}, false},
        {{8, 2, 16}, {8, 2, 15}, true},  {{8, 3, 0}, {8, 2, 99}, true},
        {{8, 1, 99}, {8, 2, 0}, false},  {{9, 0, 0}, {8, 5, 1}, false},
        {{7, 99, 99}, {8, 0, 0}, false}, {{8, 2, 0}, {8, 2, -1}, true},
        {{8, 10, 0}, {8, 9, 0}, true},
    };
    for (const auto& row : kRows)
    {
        EXPECT_EQ(IsUpToDate(row.installed, row.latest), row.upToDate)
            << InstalledVersionText(row.installed) << " " << InstalledVersionText(row.latest);
    }
}

TEST(ProgramVersionTest, TheMinorNumberHasTwoDigitsAndTheRevisionNone)
{
    constexpr struct
    {
        ProgramVersion version;
        const char* installed;
        const char* latest;
    } kRows[] = {
        {{8, 2, 15}, "8.02.15", "8.02.15"},     {{8, 1, 112}, "8.01.112", "8.01.112"},
        {{10, 123, 0}, "10.123.0", "10.123.0"}, {{8, 2, -1}, "8.02.-1", "8.02"},
        {{8, 0, 0}, "8.00.0", "8.00.0"},        {{0, 2, 3}, "0.02.3", "?"},
        {{-1, -2, 3}, "-1.-02.3", "-1.-02.3"},
    };
    for (const auto& row : kRows)
    {
        EXPECT_EQ(InstalledVersionText(row.version), row.installed);
        EXPECT_EQ(LatestVersionText(row.version), row.latest);
    }
}

TEST(ProgramRowTest, EachStatusHasItsNotice)
{
    const ProgramVersion installed{8, 2, 15};
    const std::tuple<ProgramRow, const char*, const char*> rows[] = {
        {{.index = 4, .latest = installed},
         "Update Status Unknown",
         "There was a problem in getting the update status for Loadcalc 8."},
        {{.index = 4, .installed = installed, .latest = installed},
         "Up to Date",
         "Loadcalc 8 is up to date."},
        {{.index = 4, .installed = installed, .latest = {8, 2, 16}},
         "Need to Update",
         "Loadcalc 8 needs to be updated.  Click \"Download Update for Loadcalc 8\" to download "
         "and install the update."},
    };
    for (const auto& [row, title, text] : rows)
    {
        EXPECT_EQ(StatusNoticeOf(row).title, title);
        EXPECT_EQ(StatusNoticeOf(row).text, text);
    }
}

} // namespace
} // namespace velmo
