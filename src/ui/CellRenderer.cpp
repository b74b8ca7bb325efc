#include "ui/CellRenderer.h"

#include "ui/ReadableColour.h"

#include <wx/dc.h>
#include <wx/renderer.h>
#include <wx/settings.h>

#include <algorithm>

namespace velmo
{

wxArrayString LinesThatFit(const wxDC& dc, wxString text, int width, int most)
{
    const auto fits = [&](const wxString& part) { return dc.GetTextExtent(part).x <= width; };
    wxArrayString lines;
    for (; most > 1 && !fits(text); --most)
    {
        std::size_t end = 0;
        for (std::size_t blank = text.find(' '); blank != wxString::npos && fits(text.Left(blank));
             blank = text.find(' ', blank + 1))
        {
            end = blank;
        }
        if (end == 0)
        {
            break;
        }
        lines.Add(text.Left(end));
        text = text.Mid(end + 1);
    }
    lines.Add(fits(text) ? text : wxControl::Ellipsize(text, dc, wxELLIPSIZE_END, width));
    return lines;
}

wxColour CellRenderer::DrawBackground(const wxGrid& grid, const wxGridCellAttr& attr, wxDC& dc,
                                      const wxRect& rect, bool isSelected)
{
    wxColour back = attr.GetBackgroundColour();
    wxColour text = attr.GetTextColour();
    if (isSelected)
    {
        back = wxSystemSettings::GetColour(grid.HasFocus() ? wxSYS_COLOUR_HIGHLIGHT
                                                           : wxSYS_COLOUR_BTNSHADOW);
        text = TextColourOn(back);
    }
    dc.SetPen(*wxTRANSPARENT_PEN);
    dc.SetBrush(back);
    dc.DrawRectangle(rect);
    return text;
}

void CellRenderer::Draw(wxGrid& grid, wxGridCellAttr& attr, wxDC& dc, const wxRect& rect, int row,
                        int column, bool isSelected)
{
    const wxColour colour = DrawBackground(grid, attr, dc, rect, isSelected);
    dc.SetFont(attr.GetFont());
    dc.SetTextForeground(colour);
    dc.SetBackgroundMode(wxBRUSHSTYLE_TRANSPARENT);
    const wxRect inner = wxRect(rect).Deflate(kMargin, 0);
    const int most = std::max(1, inner.height / dc.GetCharHeight());
    grid.DrawTextRectangle(dc, LinesThatFit(dc, grid.GetCellValue(row, column), inner.width, most),
                           inner, wxALIGN_LEFT, wxALIGN_CENTRE);
}

void TickRenderer::Draw(wxGrid& grid, wxGridCellAttr& attr, wxDC& dc, const wxRect& rect,
                        int /*row*/, int /*column*/, bool isSelected)
{
    DrawBackground(grid, attr, dc, rect, isSelected);
    const wxRect box = wxRect(wxRendererNative::Get().GetCheckBoxSize(&grid)).CentreIn(rect);
    wxRendererNative::Get().DrawCheckBox(&grid, dc, box,
                                         m_ticked ? static_cast<int>(wxCONTROL_CHECKED) : 0);
}

} // namespace velmo
