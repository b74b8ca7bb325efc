#include "text/UnitedStatesDate.h"

#include <gtest/gtest.h>

#include <initializer_list>

namespace velmo
{
namespace
{

using std::chrono::year;

constexpr year kThisYear{2026};

/// All of them read as that date; "-" = as none.
void ExpectParsed(const char* date, std::initializer_list<const char*> texts)
{
    for (const char* text : texts)
    {
        SCOPED_TRACE(text);
        const auto parsed = ParseDate(text, kThisYear);
        EXPECT_EQ(parsed ? FormatDateAndTime(*parsed) : "-", date);
    }
}

TEST(UnitedStatesDateTest, NumbersAreMonthDayYearUnlessThatIsNoDate)
{
    ExpectParsed("1/2/2003", {"1/2/2003", "01/02/2003", "1-2-03", "1 2 2003", "1,2,2003",
                              "1 / 2 / 2003", " 1/2/2003 ", "1\t2\t2003",
                              "1\u00A0"
                              "2\u00A0"
                              "2003",
                              "1\u3000"
                              "2 2003",
                              "2003-01-02", "2003/1/2"});
    ExpectParsed("2/13/2003", {"13/2/2003", "2/13/2003", "2003/13/2"});
    ExpectParsed("4/5/2013", {"13 4 5"});
    ExpectParsed("12/31/1999", {"31/12/1999"});
    ExpectParsed("2/29/2004", {"2/29/2004"});
}

TEST(UnitedStatesDateTest, MonthsAreNamedInEnglishInFullOrByThreeLetters)
{
    ExpectParsed("1/2/2003",
                 {"2-Jan-2003", "Jan 2, 2003", "jan 2 2003", "2 Jan, 2003", "Jan-2-2003",
                  "January 2 2003", "2jan2003", "2003 Jan 2", "2-Jan-03"});
    ExpectParsed("1/2/2040", {"40 Jan 2"});
    ExpectParsed("2/29/2004", {"feb 29 2004"});
    ExpectParsed("1/6/2003",
                 {"Monday, January 6, 2003", "Mon, 6 Jan 2003", "Tuesday, January 6, 2003"});
    ExpectParsed("-", {"Jan. 2, 2003", "Janu 2", "Sept 5", "6th January", "Jan Feb 2 2003",
                       "Jan 1/2/2003", "2 2003 Jan"});
}

TEST(UnitedStatesDateTest, AMissingYearIsThisYearAndAMissingDayTheFirst)
{
    ExpectParsed("1/2/2026", {"1/2", "Jan 2", "2 Jan"});
    ExpectParsed("1/3/2026", {"Jan 03"});
    ExpectParsed("1/1/2003", {"Jan 2003", "2003/1"});
    ExpectParsed("1/1/2032", {"1/32"});
    ExpectParsed("2/1/2030", {"2/30"});
    EXPECT_EQ(FormatDate(ParseDate("2/29", year(2028))->day), "2/29/2028");
    EXPECT_EQ(FormatDate(ParseDate("2/29", year(2027))->day), "2/1/2029");
}

TEST(UnitedStatesDateTest, ShortYearsRunFrom1950To2049)
{
    ExpectParsed("1/2/2029", {"1/2/29"});
    ExpectParsed("1/2/2030", {"1/2/30"});
    ExpectParsed("1/2/2049", {"1/2/49"});
    ExpectParsed("1/2/1950", {"1/2/50"});
    ExpectParsed("1/2/2000", {"1/2/0", "1/2/00"});
    ExpectParsed("1/1/2000", {"1/1/0000"});
    ExpectParsed("1/2/1999", {"1/2/0099"});
    ExpectParsed("1/2/100", {"1/2/100"});
    ExpectParsed("1/2/9999", {"1/2/9999"});
    ExpectParsed("-", {"1/2/10000", "1/2/4294967299"});
}

TEST(UnitedStatesDateTest, TimesStandAloneOrBesideADate)
{
    ExpectParsed("12/30/1899 1:02:03 AM", {"1.2.03"});
    ExpectParsed("12/30/1899 1:02:00 AM", {"1.2"});
    ExpectParsed("12/30/1899 12:30:00 PM", {"12:30", "0:30 pm"});
    ExpectParsed("12/30/1899 12:30:00 AM", {"12:30 am"});
    ExpectParsed("12/30/1899 4:05:00 PM", {"4:05 PM"});
    ExpectParsed("12/30/1899 4:00:00 PM", {"4pm"});
    ExpectParsed("1/2/2003 4:05:00 PM",
                 {"1/2/2003 4:05 PM", "4:05 PM 1/2/2003", "1/2/2003 16:05", "1/2/2003 16:05 PM"});
    ExpectParsed("1/2/2003 10:11:12 AM", {"2003-01-02 10:11:12"});
    ExpectParsed("-", {"25:00", "12:60", "1:02:60", "1:2:3:4", "4:05 5:06", "1/2 4:05 2003", "pm",
                       "am 1/2/2003", "1/2/2003 am", "2003-01-02T10:11:12", "2003-01-02T10:11:12Z",
                       "1/2/2003 10:11:12 GMT"});
}

TEST(UnitedStatesDateTest, OtherTextsAreNoDates)
{
    ExpectParsed("-", {"", " ", "N/A", "Today", "unknown", "January", "Monday", "-", "1-2-",
                       "1-2.3", "20030102", "2003", "5", "0", "38000", "38000.5", "1e3"});
    ExpectParsed("-", {"0.0", "0.00", "1999 January 3, 9AM"});
    ExpectParsed("12/30/1899", {"0:00", "0.0 am"});
    ExpectParsed("1/3/1999 9:00:00 AM", {"1999 January 3 9AM", "3 January 1999, 9AM"});
    ExpectParsed("-", {"1.2.2003", "31.12.2003", "2/30/2003", "2/29/2003", "feb 29 2003",
                       "0/1/2003", "1/0/2003", "13/13"});
    ExpectParsed("-",
                 {"1/2/2003 x", "1/2/2003.", "1/2/2003,", "abc 1/2/2003", "-1/2/2003", "1//2/2003",
                  "1/2/2003/4", "1/2/2003 4", "Rev \xD0\x96 of 5/9/2008", "1/2/2003\xFF"});
}

TEST(UnitedStatesDateTest, DaysAreCountedByTheCalendarNotByTheClock)
{
    const auto days = [](std::string_view from, std::string_view to) {
        return CalendarDaysBetween(*ParseDate(from, kThisYear), *ParseDate(to, kThisYear));
    };
    EXPECT_EQ(days("1/2/2003", "1/2/2003 11:59 PM"), 0);
    EXPECT_EQ(days("1/2/2003 11:59 PM", "1/3/2003 0:00"), 1);
    EXPECT_EQ(days("3/1/2004", "2/28/2004"), -2);
    EXPECT_EQ(days("1/1/100", "12/31/9999"), 3'615'899);
}

TEST(UnitedStatesDateTest, ATimeThatRoundsToMidnightIsTheNextDay)
{
    using namespace std::chrono;
    const sys_days newYearsEve = year{1999} / 12 / 31;
    EXPECT_EQ(FormatDateAndTime({newYearsEve, hours(24)}), "1/1/2000");
    EXPECT_EQ(FormatDateAndTime({newYearsEve, hours(24) - seconds(1)}), "12/31/1999 11:59:59 PM");
}

} // namespace
} // namespace velmo
