#include "install/InstallProgress.h"

#include "text/ByteSizeText.h"

#include <algorithm>
#include <cmath>
#include <cstdint>

namespace velmo
{
namespace
{

/// @a value of @a full; 0 when that makes no number.
double PartOf(double value, double full)
{
    const double part = value / full;
    return full > 0 && std::isfinite(part) ? part : 0;
}

std::string PercentText(double received, double total)
{
    constexpr double kMost = 1e15;
    // The rounding mode in force gives a half to the even number.
    const double rounded = std::nearbyint(std::clamp(PartOf(received, total) * 100, 0.0, kMost));
    return std::to_string(static_cast<std::int64_t>(rounded)) + "%";
}

} // namespace

double InstallBar::FilledPart() const
{
    return std::clamp(PartOf(value, full), 0.0, 1.0);
}

InstallBar BarOfBytes(double received, double total)
{
    return {received, total,
            ByteSizeText(received) + " of " + ByteSizeText(total) + " (" +
                PercentText(received, total) + ")"};
}

} // namespace velmo
