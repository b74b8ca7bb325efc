#include "equipment/InstalledDatabase.h"

#include "tests/equipment/EquipmentDesktop.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <array>

namespace velmo
{
namespace
{

using testing::HasSubstr;

constexpr std::chrono::year kThisYear{2026};

class InstalledDatabaseTest : public test::EquipmentDesktop
{
  protected:
    InstalledDatabase Inspect(std::string_view file, std::string_view latestDate)
    {
        return InspectDatabase(test::TestDataPath("access/" + std::string(file)), latestDate,
                               kThisYear, m_log);
    }
};

TEST_F(InstalledDatabaseTest, TheServersDateMustBeAtLeastOneDayLater)
{
    constexpr std::array<const char*, 4> kCases[] = {
        {"equipment/plain_datetime_v2000.mdb", "3/16/2004", "3/15/2004", "Yes"},
        {"equipment/plain_datetime_v2000.mdb", "3/15/2004", "3/15/2004", "No"},
        {"equipment/plain_datetime_v2000.mdb", "15-Mar-2004 11 pm", "3/15/2004", "No"},
        {"equipment/plain_datetime_v2000.mdb", "3/14/2004", "3/15/2004", "No"},
        {"equipment/plain_datetime_v2000.mdb", "soon", "3/15/2004", "-"},
        {"equipment/plain_datetime_v2000.mdb", "", "3/15/2004", "-"},
        {"equipment/text_date_v2010.accdb", "1/1/2014", "9/30/2013", "Yes"},
        {"equipment/text_mixed_unicode.mdb", "1/1/2014", "Rev \u0416\u0434 of 5/9/2008", "-"},
        {"equipment/date_with_time_v2003.mdb", "6/1/2009", "6/1/2009 2:05:09 PM", "No"},
        {"equipment/date_with_time_v2003.mdb", "6/2/2009", "6/1/2009 2:05:09 PM", "Yes"},
        {"equipment/nowhere.mdb", "3/16/2004", "-", "-"},
        {"nowhere/nothing.mdb", "3/16/2004", "-", "-"},
    };
    for (const auto& [file, latestDate, installedDate, flag] : kCases)
    {
        SCOPED_TRACE(std::string(file) + " " + latestDate);
        const InstalledDatabase installed = Inspect(file, latestDate);
        EXPECT_EQ(installed.installedDate, installedDate);
        EXPECT_EQ(installed.needsUpdate, flag);
    }
    EXPECT_EQ(LogText(), "");
}

TEST_F(InstalledDatabaseTest, ADatabaseWithoutAReadableDateLeavesOneLineInTheLog)
{
    const std::pair<const char*, const char*> cases[] = {
        {"equipment/no_header_table.mdb", "There is no table \"Header\"."},
        {"equipment/no_release_field.mdb", "has no field \"ReleaseDate\"."},
        {"equipment/header_no_rows.mdb", "Table \"Header\" is empty."},
        {"equipment/date_null.mdb", "The first \"ReleaseDate\" is empty."},
        {"broken/password.mdb", "protected by a password. (86)"},
        {"broken/encoded_rc4.mdb", "encoded. (6002)"},
        {"broken/zeroed_table_page.mdb", "(1392)"}};
    std::ptrdiff_t lines = 0;
    for (const auto& [file, reason] : cases)
    {
        SCOPED_TRACE(file);
        const InstalledDatabase installed = Inspect(file, "3/16/2004");
        EXPECT_EQ(installed.installedDate, "-");
        EXPECT_EQ(installed.needsUpdate, "-");
        const std::string log = LogText();
        EXPECT_EQ(std::ranges::count(log, '\n'), ++lines);
        EXPECT_THAT(log, HasSubstr(reason));
    }
}

} // namespace
} // namespace velmo
