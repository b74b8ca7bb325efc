#pragma once

#include <wx/window.h>

#include <cmath>

/// The unit in which the settings file keeps sizes: 15 twips to a device-independent pixel, so that
/// a saved size is right on a screen of another scale.
namespace velmo
{

inline constexpr double kTwipsPerPixel = 15.0;

[[nodiscard]] inline int PixelsOfTwips(const wxWindow& window, double twips)
{
    return window.FromDIP(static_cast<int>(std::lround(twips / kTwipsPerPixel)));
}

[[nodiscard]] inline double TwipsOfPixels(const wxWindow& window, int pixels)
{
    return window.ToDIP(pixels) * kTwipsPerPixel;
}

} // namespace velmo
