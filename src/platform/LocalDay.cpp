#include "platform/UserLocale.h"

#include <ctime>

namespace velmo::platform
{

std::chrono::sys_days LocalDay(std::chrono::system_clock::time_point time)
{
    const std::time_t seconds = std::chrono::system_clock::to_time_t(time);
    const std::tm* local = std::localtime(&seconds);
    if (local == nullptr)
    {
        return std::chrono::floor<std::chrono::days>(time);
    }
    return std::chrono::year(local->tm_year + 1900) / (local->tm_mon + 1) / local->tm_mday;
}

} // namespace velmo::platform
