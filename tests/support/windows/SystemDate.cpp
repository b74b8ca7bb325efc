#include "tests/support/SystemDate.h"

#include <windows.h>

#include <oleauto.h>

#include <cmath>

namespace velmo::test
{

std::optional<std::chrono::seconds> SystemParsedDate(const std::string& text)
{
    constexpr LCID kUnitedStates = 0x409;
    std::wstring wide(text.begin(), text.end());
    DATE date = 0;
    if (FAILED(VarDateFromStr(wide.data(), kUnitedStates, 0, &date)))
    {
        return std::nullopt;
    }
    // Days, whose part after the point is the time of day also where they are negative.
    const double day = std::trunc(date);
    const double time = std::round(std::abs(date - day) * 86'400);
    return std::chrono::seconds(static_cast<std::int64_t>(day * 86'400 + time));
}

} // namespace velmo::test
