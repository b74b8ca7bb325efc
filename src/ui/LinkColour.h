#pragma once

#include <wx/colour.h>

namespace velmo
{

/// A blue that is readable on the background; the system's own link colour need not be.
[[nodiscard]] inline wxColour LinkColour(const wxColour& background)
{
    return background.GetLuminance() > 0.5 ? wxColour(0, 84, 180) : wxColour(120, 180, 255);
}

} // namespace velmo
