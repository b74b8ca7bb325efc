#pragma once

#include <wx/stattext.h>

class wxGrid;

namespace velmo
{

/// What stands in the middle of a grid that has no rows: why, and what to do.
class EmptyNote final : public wxStaticText
{
  public:
    explicit EmptyNote(wxGrid& grid);

    void SetText(const wxString& text);

    /// Shows it when the grid has no rows, else hides it.
    void ShowIfEmpty();

    [[nodiscard]] bool AcceptsFocus() const override { return false; }

  private:
    wxGrid& m_grid;
    wxString m_text;
};

} // namespace velmo
