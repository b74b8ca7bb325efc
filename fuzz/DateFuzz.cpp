// Texts that lists and databases give as dates: what reads as a date must read the same once
// written.
#include "text/UnitedStatesDate.h"

#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    constexpr std::chrono::year kThisYear{2026};
    const auto date = velmo::ParseDate({reinterpret_cast<const char*>(data), size}, kThisYear);
    if (!date)
    {
        return 0;
    }
    const auto again = velmo::ParseDate(velmo::FormatDateAndTime(*date), kThisYear);
    if (!again || again->day != date->day || again->timeOfDay != date->timeOfDay)
    {
        std::abort();
    }
    return 0;
}
