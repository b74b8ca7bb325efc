#pragma once

class wxListCtrl;

namespace velmo
{

/// Shows the sort arrow in the header of one column, from 0, and in no other; -1 for none.
void ShowSortArrow(wxListCtrl& list, int column, bool ascending);

/// Draws the headers as buttons, or flat; only where the system knows both.
void ShowHeaderStyle(wxListCtrl& list, bool buttons);

} // namespace velmo
