#pragma once

#include <string>

class wxString;
class wxWindow;

/// What screen readers are told of controls: natively through ATK, on Windows through MSAA. User-interface
/// thread.
namespace velmo
{

enum class AccessibleRole
{
    AsItIs, ///< The system's own control, which tells the rest itself.
    List,   ///< A list view; on Windows it is the system's own.
    Table,
    ProgressBar,
};

/// Gives a control its name. Once for each control.
void NameForReaders(wxWindow& window, AccessibleRole role, const wxString& name);

/// What a control that draws itself shows now: the cell with the cursor, or how far a bar is. Readers
/// read it out when it changes. Nothing for a control without a name, or of the system's own.
void TellReaders(wxWindow& window, const wxString& value);

} // namespace velmo
