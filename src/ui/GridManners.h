#pragma once

#include <wx/grid.h>

/// What the program's grids have in common. User-interface thread.
namespace velmo
{

/// Lets the cell with the cursor have a frame while the grid has the keyboard, and only then; the
/// selection is drawn anew, since it has another colour.
void ShowFocus(wxGrid& grid);

/// Shows a tip for what is under the mouse; an empty text for none.
void ShowTip(wxWindow& window, const wxString& text);

} // namespace velmo
