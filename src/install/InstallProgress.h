#pragma once

#include <string>

namespace velmo
{

/// A progress bar: filled from its left edge to value / full of its width, with a text in its middle.
struct InstallBar
{
    double value = 0;
    double full = 100;
    std::string text;

    /// The filled part of its width, from 0 to 1.
    [[nodiscard]] double FilledPart() const;
};

/// A bar for bytes that have come, e.g. "1.5 MB of 3.0 MB (50%)". The percentage is rounded to a whole
/// number, a half to the even one; it is 0 when the total is not known. Pure; any thread.
[[nodiscard]] InstallBar BarOfBytes(double received, double total);

} // namespace velmo
