#include "ui/LinkGrid.h"

#include "ui/Accessible.h"
#include "ui/CellRenderer.h"
#include "ui/EmptyNote.h"
#include "ui/GridManners.h"
#include "ui/ReadableColour.h"
#include "ui/WxText.h"

#include <utility>

namespace velmo
{
namespace
{

enum Column
{
    kLink,
    kText,
    kColumns,
};

} // namespace

LinkGrid::LinkGrid(wxWindow* parent, const wxString& name, const wxString& header,
                   std::function<void(const std::string&)> opened,
                   std::function<void(const std::string&)> pointedAt)
    : wxGrid(parent, wxID_ANY), m_opened(std::move(opened)), m_pointedAt(std::move(pointedAt))
{
    SetName(name);
    NameForReaders(*this, AccessibleRole::Table, header);
    Bind(wxEVT_GRID_SELECT_CELL, [this](wxGridEvent& event) {
        event.Skip();
        TellReaders(*this, GetCellValue(event.GetRow(), kText));
    });
    SetDefaultCellFont(GetFont());
    CreateGrid(0, kColumns, wxGridSelectRows);
    SetColLabelValue(kText, header);
    SetLabelFont(GetFont().Bold());
    SetColLabelAlignment(wxALIGN_LEFT, wxALIGN_CENTRE);
    HideRowLabels();
    HideCol(kLink);
    EnableEditing(false);
    EnableGridLines(false);
    DisableDragRowSize();
    DisableDragColSize();
    SetDefaultRowSize(GetCharHeight() + FromDIP(8), true);
    SetColLabelSize(GetCharHeight() + FromDIP(10));
    SetDefaultRenderer(new CellRenderer);
    ShowFocus(*this);
    m_emptyNote = new EmptyNote(*this);

    // One column fills the grid.
    Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
        event.Skip();
        SetColSize(kText, GetClientSize().GetWidth());
    });
    Bind(wxEVT_GRID_CELL_LEFT_CLICK, [this](wxGridEvent& event) {
        event.Skip();
        OpenRow(event.GetRow());
    });
    Bind(wxEVT_KEY_DOWN, &LinkGrid::OnKey, this);
    GetGridWindow()->Bind(wxEVT_MOTION, &LinkGrid::OnMouse, this);
    GetGridWindow()->Bind(wxEVT_LEAVE_WINDOW, &LinkGrid::OnMouse, this);
}

void LinkGrid::SetLines(const std::vector<LinkLine>& lines)
{
    BeginBatch();
    if (GetNumberRows() > 0)
    {
        DeleteRows(0, GetNumberRows());
    }
    AppendRows(static_cast<int>(lines.size()));
    int row = 0;
    for (const LinkLine& line : lines)
    {
        SetCellValue(row, kLink, ToWx(line.link));
        SetCellValue(row, kText, ToWx(line.text));
        if (!line.link.empty())
        {
            SetCellFont(row, kText, GetDefaultCellFont().Underlined());
            SetCellTextColour(row, kText, LinkColour(GetDefaultCellBackgroundColour()));
        }
        ++row;
    }
    if (row > 0)
    {
        SetGridCursor(0, kText); // In the hidden column nobody would see it.
    }
    m_emptyNote->ShowIfEmpty();
    EndBatch();
    // What the mouse points at is another line now, or none.
    PointAt({});
}

void LinkGrid::SetEmptyText(const wxString& text)
{
    m_emptyNote->SetText(text);
}

int LinkGrid::HeightOf(int lines) const
{
    return GetColLabelSize() + lines * GetDefaultRowSize();
}

std::string LinkGrid::LinkOf(int row) const
{
    return row >= 0 && row < const_cast<LinkGrid*>(this)->GetNumberRows()
               ? FromWx(GetCellValue(row, kLink))
               : std::string();
}

void LinkGrid::OpenRow(int row)
{
    if (const std::string link = LinkOf(row); !link.empty())
    {
        m_opened(link);
    }
}

void LinkGrid::OnMouse(wxMouseEvent& event)
{
    event.Skip();
    const wxPoint place = CalcUnscrolledPosition(event.GetPosition());
    const int row = event.Leaving() ? wxNOT_FOUND : YToRow(place.y);
    const wxString text = row == wxNOT_FOUND ? wxString() : GetCellValue(row, kText);
    const bool isCut = GetTextExtent(text).x > GetColSize(kText) - 2 * CellRenderer::kMargin;
    ShowTip(*GetGridWindow(), isCut ? text : wxString());
    PointAt(LinkOf(row));
}

void LinkGrid::PointAt(const std::string& link)
{
    if (link != m_linkUnderMouse)
    {
        m_linkUnderMouse = link;
        GetGridWindow()->SetCursor(link.empty() ? wxNullCursor : wxCursor(wxCURSOR_HAND));
        m_pointedAt(link);
    }
}

void LinkGrid::OnKey(wxKeyEvent& event)
{
    switch (event.GetKeyCode())
    {
    case WXK_RETURN:
    case WXK_NUMPAD_ENTER:
    case WXK_SPACE:
        OpenRow(GetGridCursorRow());
        break;
    case WXK_TAB:
        Navigate(event.ShiftDown() ? wxNavigationKeyEvent::IsBackward
                                   : wxNavigationKeyEvent::IsForward);
        break;
    default:
        event.Skip();
    }
}

} // namespace velmo
