#pragma once

#include <wx/arrstr.h>
#include <wx/grid.h>

namespace velmo
{

/// A text in lines of at most @a width pixels, parted at blanks, and of at most @a most lines; what does
/// not fit ends in an ellipsis. The font is the device's.
[[nodiscard]] wxArrayString LinesThatFit(const wxDC& dc, wxString text, int width, int most);

/// Draws a cell's text in as many lines as its height has room for, and a selected cell so that its text
/// can be read whether the grid has the keyboard or not.
class CellRenderer : public wxGridCellStringRenderer
{
  public:
    void Draw(wxGrid& grid, wxGridCellAttr& attr, wxDC& dc, const wxRect& rect, int row, int column,
              bool isSelected) override;
    wxGridCellRenderer* Clone() const override { return new CellRenderer; }

    /// Pixels between a cell's edge and its text.
    static constexpr int kMargin = 3;

  protected:
    /// Fills the cell; the colour that its text has.
    static wxColour DrawBackground(const wxGrid& grid, const wxGridCellAttr& attr, wxDC& dc,
                                   const wxRect& rect, bool isSelected);
};

/// Draws a tick box in the middle of its cell.
class TickRenderer final : public CellRenderer
{
  public:
    explicit TickRenderer(bool ticked) : m_ticked(ticked) {}

    void Draw(wxGrid& grid, wxGridCellAttr& attr, wxDC& dc, const wxRect& rect, int row, int column,
              bool isSelected) override;
    wxGridCellRenderer* Clone() const override { return new TickRenderer(m_ticked); }

  private:
    bool m_ticked;
};

} // namespace velmo
