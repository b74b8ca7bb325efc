#include "ui/Grid.h"

#include "ui/Accessible.h"
#include "ui/CellRenderer.h"
#include "ui/EmptyNote.h"
#include "ui/GridManners.h"
#include "ui/GridTable.h"
#include "ui/WxText.h"

#include <wx/dcclient.h>

#include <algorithm>
#include <utility>

namespace velmo
{
namespace
{

/// Room round a cell's text, in device-independent pixels.
constexpr int kTextMargin = 10;
constexpr int kRowMargin = 6;

/// A row grows to so many lines for texts that a narrow column cuts.
constexpr int kMostLines = 3;

} // namespace

Grid::Grid(wxWindow* parent, GridModel& model,
           std::function<void(std::size_t, std::size_t)> tickClicked)
    : wxGrid(parent, wxID_ANY), m_model(model), m_tickClicked(std::move(tickClicked))
{
    const wxFont normal = GetFont();
    SetDefaultCellFont(normal);
    m_table = new GridTable(model, normal);
    SetTable(m_table, true, wxGridSelectRows);
    HideRowLabels();
    SetLabelFont(normal);
    SetColLabelSize(wxGRID_AUTOSIZE);
    EnableEditing(false);
    DisableDragRowSize();
    m_emptyNote = new EmptyNote(*this);
    BindEvents();
    model.Observe(this);
    OnColumnsShown();
    OnSizeToContents();
}

Grid::~Grid()
{
    m_model.Observe(nullptr);
}

void Grid::BindEvents()
{
    Bind(wxEVT_GRID_CELL_LEFT_CLICK, [this](wxGridEvent& event) {
        event.Skip();
        const auto row = static_cast<std::size_t>(event.GetRow());
        const auto column = static_cast<std::size_t>(event.GetCol());
        if (m_model.Rows().Tick(row, column) != TickState::None)
        {
            m_tickClicked(row, column);
        }
    });
    Bind(wxEVT_KEY_DOWN, &Grid::OnKey, this);
    Bind(wxEVT_GRID_COL_SIZE, [this](wxGridSizeEvent& event) {
        event.Skip();
        SizeRows();
    });
    Bind(wxEVT_GRID_SELECT_CELL, [this](wxGridEvent& event) {
        event.Skip();
        TellCell(event.GetRow(), event.GetCol());
    });
    ShowFocus(*this);
    BindPointer(*GetGridWindow());
    Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
        event.Skip();
        FreezeFirstColumn();
    });
}

/// Without it nobody knows whose the boxes at the right are. Not before there is room for it.
void Grid::FreezeFirstColumn()
{
    if (GetFrozenColGridWindow() == nullptr && FreezeTo(0, 1))
    {
        BindPointer(*GetFrozenColGridWindow());
    }
}

void Grid::BindPointer(wxWindow& window)
{
    window.Bind(wxEVT_MOTION, [this, &window](wxMouseEvent& event) {
        event.Skip();
        const wxPoint place = window.GetPosition() + event.GetPosition();
        wxGridWindow* part = DevicePosToGridWindow(place);
        const wxGridCellCoords cell =
            XYToCell(CalcGridWindowUnscrolledPosition(event.GetPosition(), part), part);
        ShowTip(window,
                cell == wxGridNoCellCoords ? wxString() : TipAt(cell.GetRow(), cell.GetCol()));
    });
}

wxString Grid::TipAt(int row, int column)
{
    const auto place = static_cast<std::size_t>(column);
    const std::string tip = m_model.Rows().Tip(static_cast<std::size_t>(row), place);
    const wxString text = GetCellValue(row, column);
    wxClientDC dc(this);
    dc.SetFont(GetCellFont(row, column));
    const int room = GetColSize(column) - 2 * CellRenderer::kMargin;
    const bool isCut = dc.GetTextExtent(text).x > room;
    return isCut && !tip.empty() ? text + "\n" + ToWx(tip) : isCut ? text : ToWx(tip);
}

void Grid::SetEmptyText(const wxString& text)
{
    m_emptyNote->SetText(text);
}

void Grid::OnKey(wxKeyEvent& event)
{
    if (event.GetKeyCode() == WXK_SPACE && !event.HasAnyModifiers())
    {
        ToggleAtCursor();
        return;
    }
    // Tab leaves the grid: the arrows are for moving inside it.
    if (event.GetKeyCode() == WXK_TAB && !event.ControlDown())
    {
        Navigate(event.ShiftDown() ? wxNavigationKeyEvent::IsBackward
                                   : wxNavigationKeyEvent::IsForward);
        return;
    }
    event.Skip();
}

void Grid::ToggleAtCursor()
{
    const int row = GetGridCursorRow();
    const int column = GetGridCursorCol();
    if (row >= 0 && column >= 0 &&
        m_model.Rows().Tick(static_cast<std::size_t>(row), static_cast<std::size_t>(column)) !=
            TickState::None)
    {
        m_tickClicked(static_cast<std::size_t>(row), static_cast<std::size_t>(column));
    }
}

void Grid::NotePosition()
{
    GridPosition position;
    position.row = static_cast<std::size_t>(std::max(0, GetGridCursorRow()));
    position.column = static_cast<std::size_t>(std::max(0, GetGridCursorCol()));
    position.topRow = static_cast<std::size_t>(std::max(0, GetFirstFullyVisibleRow()));
    position.leftColumn = static_cast<std::size_t>(std::max(0, GetFirstFullyVisibleColumn()));
    m_model.NotePosition(position);
}

void Grid::OnRowsChanged()
{
    if (m_table->ToldRows() > 0)
    {
        NotePosition(); // Of the rows that it still has.
    }
    m_table->TellRowCount();
    m_emptyNote->ShowIfEmpty();
    ForceRefresh();
}

void Grid::TellCell(int row, int column)
{
    wxString header = m_table->GetColLabelValue(column);
    header.Replace("\n", " ");
    const TickState tick =
        m_model.Rows().Tick(static_cast<std::size_t>(row), static_cast<std::size_t>(column));
    const wxString content = tick == TickState::Ticked     ? wxString("ticked")
                             : tick == TickState::Unticked ? wxString("not ticked")
                                                           : GetCellValue(row, column);
    TellReaders(*this, GetCellValue(row, 0) + ", " + header + ": " + content);
}

void Grid::OnCellChanged(std::size_t row, std::size_t column)
{
    TellCell(static_cast<int>(row), static_cast<int>(column));
    RefreshBlock(static_cast<int>(row), static_cast<int>(column), static_cast<int>(row),
                 static_cast<int>(column));
}

void Grid::OnColumnCellsChanged(std::size_t /*column*/)
{
    ForceRefresh();
}

void Grid::OnPositionChanged()
{
    if (m_model.Rows().RowCount() == 0)
    {
        return;
    }
    const GridPosition position = m_model.Position();
    SetGridCursor(static_cast<int>(position.row), static_cast<int>(position.column));
    // Not by making a cell visible: one that is merged with others is as tall as all of them.
    int xUnit = 1;
    int yUnit = 1;
    GetScrollPixelsPerUnit(&xUnit, &yUnit);
    Scroll((GetColLeft(static_cast<int>(position.leftColumn)) - GetColSize(0)) / xUnit,
           GetRowTop(static_cast<int>(position.topRow)) / yUnit);
}

void Grid::OnSizeToContents()
{
    BeginBatch();
    for (std::size_t column = 0; column < m_model.Columns().size(); ++column)
    {
        if (!m_model.Columns()[column].hidden)
        {
            SetColSize(static_cast<int>(column), WidthFor(column));
        }
    }
    SetColLabelSize(wxGRID_AUTOSIZE);
    SizeRows();
    EndBatch();
}

void Grid::OnColumnsShown()
{
    for (std::size_t column = 0; column < m_model.Columns().size(); ++column)
    {
        const int number = static_cast<int>(column);
        const bool isHidden = m_model.Columns()[column].hidden;
        if (isHidden && IsColShown(number))
        {
            HideCol(number);
        }
        else if (!isHidden && !IsColShown(number))
        {
            ShowCol(number);
            SetColSize(number, WidthFor(column));
        }
    }
    SizeRows();
}

/// All of them alike: to find the height of each, each would have to be measured.
void Grid::SizeRows()
{
    wxClientDC dc(this);
    dc.SetFont(GetDefaultCellFont().Bold());
    int lines = 1;
    for (std::size_t column = 0; column < m_model.Columns().size(); ++column)
    {
        const int room = GetColSize(static_cast<int>(column)) - 2 * CellRenderer::kMargin;
        if (room > 0)
        {
            const wxString longest = ToWx(m_model.LongestText(column));
            lines = std::max(lines,
                             static_cast<int>(LinesThatFit(dc, longest, room, kMostLines).size()));
        }
    }
    SetDefaultRowSize(lines * GetCharHeight() + FromDIP(kRowMargin), true);
}

int Grid::WidthFor(std::size_t column)
{
    wxClientDC dc(this);
    dc.SetFont(GetLabelFont());
    int width = dc.GetMultiLineTextExtent(m_table->GetColLabelValue(static_cast<int>(column))).x;
    // Bold, since any row may become so.
    dc.SetFont(GetDefaultCellFont().Bold());
    // The text with the most characters need not be the widest.
    const int longest = dc.GetTextExtent(ToWx(m_model.LongestText(column))).x;
    return std::max(width, longest + longest / 8) + FromDIP(kTextMargin);
}

} // namespace velmo
