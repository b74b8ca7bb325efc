#include "ui/Grid.h"

#include "ui/GridTable.h"
#include "ui/Twips.h"
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
    SetDefaultRowSize(GetCharHeight() + FromDIP(kRowMargin), true);
    for (std::size_t column = 0; column < model.Columns().size(); ++column)
    {
        if (model.Columns()[column].hidden)
        {
            HideCol(static_cast<int>(column));
        }
    }
    BindEvents();
    model.Observe(this);
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
    Bind(wxEVT_GRID_SELECT_CELL, [this](wxGridEvent& event) {
        event.Skip();
        CallAfter([this] { NotePosition(); });
    });
    Bind(wxEVT_GRID_COL_SIZE, [this](wxGridSizeEvent& event) {
        event.Skip();
        const int column = event.GetRowOrCol();
        m_model.NoteColumnWidth(static_cast<std::size_t>(column),
                                static_cast<float>(TwipsOfPixels(*this, GetColSize(column))));
    });
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
    m_table->TellRowCount();
    ForceRefresh();
}

void Grid::OnCellChanged(std::size_t row, std::size_t column)
{
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
    Scroll(GetColLeft(static_cast<int>(position.leftColumn)) / xUnit,
           GetRowTop(static_cast<int>(position.topRow)) / yUnit);
}

void Grid::OnSizeToContents()
{
    BeginBatch();
    for (std::size_t column = 0; column < m_model.Columns().size(); ++column)
    {
        if (!m_model.Columns()[column].hidden)
        {
            const int width = WidthFor(column);
            SetColSize(static_cast<int>(column), width);
            m_model.NoteColumnWidth(column, static_cast<float>(TwipsOfPixels(*this, width)));
        }
    }
    SetColLabelSize(wxGRID_AUTOSIZE);
    EndBatch();
}

int Grid::WidthFor(std::size_t column)
{
    wxClientDC dc(this);
    dc.SetFont(GetLabelFont());
    int width = dc.GetMultiLineTextExtent(m_table->GetColLabelValue(static_cast<int>(column))).x;
    // Bold, since any row may become so.
    dc.SetFont(GetDefaultCellFont().Bold());
    width = std::max(width, dc.GetTextExtent(ToWx(m_model.LongestText(column))).x);
    return width + FromDIP(kTextMargin);
}

} // namespace velmo
