#include "platform/UserLocale.h"

#include <ctime>

namespace velmo::platform
{

std::chrono::sys_seconds LocalTime(std::chrono::system_clock::time_point time)
{
    using namespace std::chrono;
    const std::time_t clock = system_clock::to_time_t(time);
    const std::tm* local = std::localtime(&clock);
    if (local == nullptr)
    {
        return floor<seconds>(time);
    }
    const sys_days day = year(local->tm_year + 1900) / (local->tm_mon + 1) / local->tm_mday;
    return day + hours(local->tm_hour) + minutes(local->tm_min) + seconds(local->tm_sec);
}

std::chrono::sys_days LocalDay(std::chrono::system_clock::time_point time)
{
    return std::chrono::floor<std::chrono::days>(LocalTime(time));
}

} // namespace velmo::platform
