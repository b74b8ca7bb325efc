#include "ui/EmptyNote.h"

#include <wx/grid.h>
#include <wx/settings.h>

namespace velmo
{

EmptyNote::EmptyNote(wxGrid& grid)
    : wxStaticText(grid.GetGridWindow(), wxID_ANY, wxEmptyString, wxDefaultPosition, wxDefaultSize,
                   wxALIGN_CENTRE_HORIZONTAL),
      m_grid(grid)
{
    SetForegroundColour(wxSystemSettings::GetColour(wxSYS_COLOUR_WINDOWTEXT));
    SetBackgroundColour(grid.GetDefaultCellBackgroundColour());
    grid.Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
        event.Skip();
        CallAfter([this] { ShowIfEmpty(); });
    });
}

void EmptyNote::SetText(const wxString& text)
{
    m_text = text;
    ShowIfEmpty();
}

void EmptyNote::ShowIfEmpty()
{
    Show(m_grid.GetNumberRows() == 0);
    const wxSize room = GetParent()->GetClientSize();
    const int margin = 2 * GetCharHeight();
    if (!IsShown() || room.x <= 2 * margin)
    {
        return;
    }
    SetLabel(m_text);
    Wrap(room.x - 2 * margin);
    const wxSize size = GetBestSize();
    SetSize((room.x - size.x) / 2, margin, size.x, size.y);
}

} // namespace velmo
