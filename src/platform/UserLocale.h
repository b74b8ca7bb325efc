#pragma once

#include <chrono>

/// How the person at this machine writes numbers, and their calendar.
namespace velmo::platform
{

/// The decimal mark of the user's locale: "." or "," (any other mark is taken as it is). Read once for
/// the process, at the first call. Any thread.
[[nodiscard]] char DecimalMark();

/// What this machine's clock and calendar show. Not beside other threads that use the C library's
/// calendar.
[[nodiscard]] std::chrono::sys_seconds LocalTime(std::chrono::system_clock::time_point time);

/// The day on this machine's calendar. Not beside other threads that use the C library's calendar.
[[nodiscard]] std::chrono::sys_days LocalDay(std::chrono::system_clock::time_point time);

} // namespace velmo::platform
