#include "text/ByteSizeText.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <cstdio>

namespace velmo
{
namespace
{

struct Unit
{
    double threshold;
    double divisor;
    int decimals;
    const char* name;
};

constexpr std::array kUnits{
    Unit{1e9, 1024.0 * 1024 * 1024, 2, "GB"},
    Unit{1e6, 1024.0 * 1024, 1, "MB"},
    Unit{1e3, 1024.0, 0, "KB"},
};

std::string Fixed(double value, int decimals)
{
    // Halves go up, where printf would send an exact half to the even digit.
    const double scale = std::pow(10.0, decimals);
    std::array<char, 400> text{};
    std::snprintf(text.data(), text.size(), "%.*f", decimals, std::round(value * scale) / scale);
    return text.data();
}

} // namespace

std::string ByteSizeText(double bytes)
{
    if (!std::isfinite(bytes))
    {
        return "0 Bytes";
    }
    for (const Unit& unit : kUnits)
    {
        if (bytes >= unit.threshold)
        {
            return Fixed(bytes / unit.divisor, unit.decimals) + " " + unit.name;
        }
    }
    return Fixed(std::trunc(bytes), 0) + " Bytes";
}

std::string ByteCountText(double bytes)
{
    constexpr double kMost = 1e15;
    const double count = std::isnan(bytes) ? 0 : std::clamp(bytes, -kMost, kMost);
    return std::to_string(static_cast<std::int64_t>(count));
}

} // namespace velmo
