#include "trust/UtcTime.h"

#include "text/TextCase.h"

#include <array>

namespace velmo
{
namespace
{

/// A "0" stands for any digit.
constexpr std::string_view kForm = "0000-00-00T00:00:00Z";

struct Place
{
    std::size_t at;
    std::size_t digits;
};
constexpr std::array<Place, 6> kPlaces{{{0, 4}, {5, 2}, {8, 2}, {11, 2}, {14, 2}, {17, 2}}};

} // namespace

std::optional<std::chrono::sys_seconds> ParseUtcTime(std::string_view text)
{
    if (text.size() != kForm.size())
    {
        return std::nullopt;
    }
    for (std::size_t i = 0; i < kForm.size(); ++i)
    {
        if (kForm[i] == '0' ? !IsDigit(text[i]) : text[i] != kForm[i])
        {
            return std::nullopt;
        }
    }
    std::array<unsigned, kPlaces.size()> values{};
    for (std::size_t i = 0; i < kPlaces.size(); ++i)
    {
        for (const char digit : text.substr(kPlaces[i].at, kPlaces[i].digits))
        {
            values[i] = values[i] * 10 + static_cast<unsigned>(digit - '0');
        }
    }
    const auto [year, month, day, hour, minute, second] = values;
    const std::chrono::year_month_day date{std::chrono::year(static_cast<int>(year)),
                                           std::chrono::month(month), std::chrono::day(day)};
    if (!date.ok() || hour > 23 || minute > 59 || second > 59)
    {
        return std::nullopt;
    }
    return std::chrono::sys_days(date) + std::chrono::hours(hour) + std::chrono::minutes(minute) +
           std::chrono::seconds(second);
}

std::string UtcTimeText(std::chrono::sys_seconds time)
{
    const auto day = std::chrono::floor<std::chrono::days>(time);
    const std::chrono::year_month_day date(day);
    const std::chrono::hh_mm_ss clock(time - day);
    std::array<unsigned, kPlaces.size()> values{
        static_cast<unsigned>(static_cast<int>(date.year())),
        static_cast<unsigned>(date.month()),
        static_cast<unsigned>(date.day()),
        static_cast<unsigned>(clock.hours().count()),
        static_cast<unsigned>(clock.minutes().count()),
        static_cast<unsigned>(clock.seconds().count())};
    std::string text(kForm);
    for (std::size_t i = 0; i < kPlaces.size(); ++i)
    {
        for (std::size_t digit = kPlaces[i].digits; digit > 0; --digit, values[i] /= 10)
        {
            text[kPlaces[i].at + digit - 1] = static_cast<char>('0' + values[i] % 10);
        }
    }
    return text;
}

} // namespace velmo
