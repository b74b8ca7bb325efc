#include "ui/GridManners.h"

#include <wx/settings.h>
#include <wx/tooltip.h>

namespace velmo
{
namespace
{

constexpr int kFrame = 2; ///< Device-independent pixels.

} // namespace

void ShowFocus(wxGrid& grid)
{
    grid.SetCellHighlightColour(wxSystemSettings::GetColour(wxSYS_COLOUR_WINDOWTEXT));
    grid.SetCellHighlightROPenWidth(0);
    const auto show = [&grid](wxFocusEvent& event) {
        event.Skip();
        grid.SetCellHighlightROPenWidth(
            event.GetEventType() == wxEVT_SET_FOCUS ? grid.FromDIP(kFrame) : 0);
        grid.ForceRefresh();
    };
    grid.Bind(wxEVT_SET_FOCUS, show);
    grid.Bind(wxEVT_KILL_FOCUS, show);
}

void ShowTip(wxWindow& window, const wxString& text)
{
    if (window.GetToolTipText() == text)
    {
        return;
    }
    if (text.empty())
    {
        window.UnsetToolTip();
        return;
    }
    window.SetToolTip(text);
}

} // namespace velmo
