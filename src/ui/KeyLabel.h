#pragma once

class wxStaticText;

namespace velmo
{

/// Leaves the line under a label's letter but takes the letter's own key away, where the system would
/// hold it back from the menu entry that has the same key, also while the label is not to be seen.
void LeaveKeyToMenu(wxStaticText& label);

} // namespace velmo
