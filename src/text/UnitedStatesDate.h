#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

/**
    Dates as the vendor's lists and databases write them. The order is the United States' (month,
    day, year) on every machine, whatever its locale. Pure; any thread.
 */
namespace velmo
{

struct DateAndTime
{
    std::chrono::sys_days day;
    std::chrono::seconds timeOfDay{0};
};

/// December 30, 1899: the day of a text that has a time only.
inline constexpr std::chrono::sys_days kDayZero{std::chrono::year{1899} / 12 / 30};

/**
    Reads a date, a time, or both, in either order; nothing when the text is no such thing.

    A date is two or three numbers, one of which may be the English name of a month, in full or its
    first three letters; "/", "-", "," or blanks stand between them, names of weekdays are passed
    over. Without a day it is the first of the month, without a year it is @a thisYear. When month,
    day, year makes no date, other orders are tried: "2003-01-02" and "13/2/2003" are dates. Years 0
    to 49 are 2000 to 2049, 50 to 99 are 1950 to 1999; otherwise 100 to 9999. A time is "h:mm" or
    "h:mm:ss" ("." does for ":"), or an hour, with "AM" or "PM"; the latter may be missing from the
    former. "0.0" is no time, and no comma may part a time from a date like "1999 January 3".
 */
[[nodiscard]] std::optional<DateAndTime> ParseDate(std::string_view text,
                                                   std::chrono::year thisYear);

/// Midnights from one to the other; negative when @a to is earlier. Times of day do not matter.
[[nodiscard]] std::int64_t CalendarDaysBetween(const DateAndTime& from, const DateAndTime& to);

/// "m/d/yyyy", without leading zeros.
[[nodiscard]] std::string FormatDate(std::chrono::sys_days day);

/// FormatDate(), and " h:mm:ss AM" or " h:mm:ss PM" unless it is midnight. A time of 24 hours or
/// more carries over into the day.
[[nodiscard]] std::string FormatDateAndTime(const DateAndTime& date);

} // namespace velmo
