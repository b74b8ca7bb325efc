#pragma once

#include <wx/string.h>

class wxPanel;
class wxWindow;

namespace velmo
{

/// A tab's panel that has nothing to show yet: one line says what will be there.
[[nodiscard]] wxPanel* MakeEmptyPage(wxWindow* parent, const wxString& text);

} // namespace velmo
