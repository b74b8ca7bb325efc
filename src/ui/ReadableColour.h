#pragma once

#include <wx/colour.h>

#include <cmath>

namespace velmo
{

/// A blue that is readable on the background; the system's own link colour need not be.
[[nodiscard]] inline wxColour LinkColour(const wxColour& background)
{
    return background.GetLuminance() > 0.5 ? wxColour(0, 84, 180) : wxColour(120, 180, 255);
}

/// How bright a colour is to the eye, 0 to 1, as contrasts are reckoned from it.
[[nodiscard]] inline double Brightness(const wxColour& colour)
{
    const auto linear = [](unsigned char part) { return std::pow(part / 255.0, 2.2); };
    return 0.2126 * linear(colour.Red()) + 0.7152 * linear(colour.Green()) +
           0.0722 * linear(colour.Blue());
}

/// Black or white, whichever stands out from the background more: at least 4.5 to 1.
[[nodiscard]] inline wxColour TextColourOn(const wxColour& background)
{
    return Brightness(background) > 0.18 ? *wxBLACK : *wxWHITE;
}

} // namespace velmo
