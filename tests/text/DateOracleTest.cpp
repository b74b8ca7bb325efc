#include "platform/UserLocale.h"
#include "tests/support/windows/WindowsAnswers.h"
#include "text/UnitedStatesDate.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <string>
#include <vector>

namespace velmo
{
namespace
{

using Pieces = std::vector<std::string>;

/// All texts of one piece from each list.
std::vector<std::string> Texts(const std::vector<Pieces>& lists)
{
    std::vector<std::string> texts = {""};
    for (const Pieces& pieces : lists)
    {
        std::vector<std::string> longer;
        for (const std::string& text : texts)
        {
            std::ranges::transform(pieces, std::back_inserter(longer),
                                   [&](const std::string& piece) { return text + piece; });
        }
        texts = std::move(longer);
    }
    return texts;
}

/**
    Texts of every accepted form and many close to one. Left out is where Wine's parser is known to
    differ from Windows' or to make no sense: number, month's name, number where both numbers may be
    days (Wine takes the first for the year), numbers over 65,535, doubled marks, ":" or "." beside
    a month's name, a single "a" or "p", and times of zeros with ".".
 */
std::vector<std::vector<Pieces>> Forms()
{
    const Pieces numbers = {"0",  "1",  "02", "12", "13",  "28",   "29",   "30",   "31",
                            "32", "49", "50", "99", "100", "2003", "2004", "9999", "10000"};
    const Pieces years = {"32", "50", "99", "100", "2003", "10000"};
    const Pieces few = {"1", "13", "31", "50", "2004"};
    const Pieces marks = {"/", "-", " ", ",", ", ", ".", ":"};
    const Pieces months = {"Jan", "february", "Sept"};
    const Pieces beside = {"/", "-", " ", ", ", ""};
    const Pieces two = {" ", "-"};
    return {
        {numbers, {"/"}, numbers},
        {numbers, {"/", " "}, numbers, {"/", " "}, numbers},
        {few, marks, few, marks, few},
        {months, beside, numbers},
        {numbers, beside, months},
        {months, two, numbers, two, numbers},
        {numbers, two, numbers, two, months},
        {few, beside, months, beside, years},
        {years, beside, months, beside, few},
        {{"", "Mon ", "Tuesday, "},
         {"1/2/2003", "Jan 2", "5"},
         {"", " ", ",", ".", "/", "x", " Fri"}},
        {{"0", "4", "12", "13", "23", "24"},
         {":", "."},
         {"0", "05", "59", "60"},
         {"", "am", " PM"}},
        {{"0", "12", "23"}, {":5", ".59"}, {":7", ".59", ":60"}, {"", "am", " PM", "m"}},
        {{"", "1/2/2003 ", "1/2 ", "Jan 2 ", "2-"},
         {"4", "4:05", "16.5", "1:2:3"},
         {"", " am", "pm"},
         {"", " 1/2/2003", " 5", " Jan 50", "-2", ", 2"}},
    };
}

TEST(DateOracleTest, TheParserAgreesWithTheSystemsOnGeneratedTexts)
{
    const std::chrono::year_month_day today(platform::LocalDay(std::chrono::system_clock::now()));
    std::size_t dates = 0;
    for (const auto& form : Forms())
    {
        for (const std::string& text : Texts(form))
        {
            if (text.starts_with("0.0"))
            {
                continue;
            }
            const auto date = ParseDate(text, today.year());
            const auto seconds = test::SystemParsedDate(text);
            ASSERT_EQ(date ? FormatDateAndTime(*date) : "-",
                      seconds ? FormatDateAndTime({kDayZero, *seconds}) : "-")
                << text;
            dates += date ? 1 : 0;
        }
    }
    EXPECT_GT(dates, 8'000U);
}

} // namespace
} // namespace velmo
