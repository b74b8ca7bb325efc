#include "controls/GridModel.h"

#include <algorithm>
#include <utility>

namespace velmo
{
namespace
{

std::size_t CharacterCount(const std::string& text)
{
    return static_cast<std::size_t>(std::count_if(text.begin(), text.end(), [](char c) {
        return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U;
    }));
}

/// The nearest number below @a count; 0 when there is none.
std::size_t Within(std::size_t number, std::size_t count)
{
    return count == 0 ? 0 : std::min(number, count - 1);
}

} // namespace

GridModel::GridModel(std::vector<GridColumn> columns) : m_columns(std::move(columns)) {}

template <typename... Arguments>
void GridModel::Tell(void (Observer::*event)(Arguments...), Arguments... arguments) const
{
    if (m_observer != nullptr)
    {
        (m_observer->*event)(arguments...);
    }
}

const std::string& GridModel::Text(std::size_t row, std::size_t column) const
{
    return m_rows.at(row).cells.at(column).text;
}

TickState GridModel::Tick(std::size_t row, std::size_t column) const
{
    return m_rows.at(row).cells.at(column).tick;
}

void GridModel::Clear()
{
    m_rows.clear();
    RowsChanged();
    MoveTo({});
}

void GridModel::Append(GridRow row)
{
    row.cells.resize(m_columns.size());
    m_rows.push_back(std::move(row));
    RowsChanged();
}

void GridModel::RowsChanged()
{
    m_layout.reset();
    m_rowsChangedUnseen = !m_redraw;
    if (m_redraw)
    {
        Tell(&Observer::OnRowsChanged);
    }
}

bool GridModel::SetTick(std::size_t row, std::size_t column, TickState state)
{
    GridCell& cell = m_rows.at(row).cells.at(column);
    if (cell.tick == TickState::None || state == TickState::None || cell.tick == state)
    {
        return false;
    }
    cell.tick = state;
    m_rowsChangedUnseen = m_rowsChangedUnseen || !m_redraw;
    if (m_redraw)
    {
        Tell(&Observer::OnCellChanged, row, column);
    }
    return true;
}

void GridModel::SetTicks(std::size_t column, TickState state,
                         const std::function<bool(std::size_t row)>& wanted)
{
    const bool redraw = std::exchange(m_redraw, false);
    bool changed = false;
    for (std::size_t row = 0; row < m_rows.size(); ++row)
    {
        changed = (wanted(row) && SetTick(row, column, state)) || changed;
    }
    m_redraw = redraw;
    if (redraw)
    {
        m_rowsChangedUnseen = false;
    }
    if (redraw && changed)
    {
        Tell(&Observer::OnColumnCellsChanged, column);
    }
}

GridSpan GridModel::SpanAt(std::size_t row, std::size_t column) const
{
    if (m_columns.at(column).merged)
    {
        return CurrentLayout().spans[column].at(row);
    }
    return {static_cast<std::uint32_t>(row), 1};
}

const std::string& GridModel::LongestText(std::size_t column) const
{
    static const std::string none;
    const std::size_t row = CurrentLayout().longestRow.at(column);
    return m_rows.empty() ? none : Text(row, column);
}

const GridModel::Layout& GridModel::CurrentLayout() const
{
    if (!m_layout)
    {
        m_layout.emplace();
        for (std::size_t column = 0; column < m_columns.size(); ++column)
        {
            m_layout->spans.push_back(Spans(column));
            m_layout->longestRow.push_back(LongestRow(column));
        }
    }
    return *m_layout;
}

std::vector<GridSpan> GridModel::Spans(std::size_t column) const
{
    std::vector<GridSpan> spans;
    if (!m_columns[column].merged)
    {
        return spans;
    }
    spans.reserve(m_rows.size());
    for (std::size_t first = 0; first < m_rows.size();)
    {
        std::size_t last = first;
        while (IsMergedWithNext(last, column))
        {
            ++last;
        }
        const GridSpan span{static_cast<std::uint32_t>(first),
                            static_cast<std::uint32_t>(last - first + 1)};
        spans.insert(spans.end(), span.count, span);
        first = last + 1;
    }
    return spans;
}

bool GridModel::IsMergedWithNext(std::size_t row, std::size_t column) const
{
    if (row + 1 >= m_rows.size())
    {
        return false;
    }
    const GridCell& cell = m_rows[row].cells[column];
    const GridCell& next = m_rows[row + 1].cells[column];
    return cell.tick == TickState::None && next.tick == TickState::None && !cell.text.empty() &&
           cell.text == next.text;
}

std::size_t GridModel::LongestRow(std::size_t column) const
{
    std::size_t longest = 0;
    std::size_t longestCount = 0;
    for (std::size_t row = 0; row < m_rows.size(); ++row)
    {
        const std::string& text = m_rows[row].cells[column].text;
        // No text has more characters than bytes.
        if (const std::size_t count = text.size() > longestCount ? CharacterCount(text) : 0;
            count > longestCount)
        {
            longest = row;
            longestCount = count;
        }
    }
    return longest;
}

void GridModel::MoveTo(const GridPosition& position)
{
    const GridPosition place{
        Within(position.row, m_rows.size()), Within(position.column, m_columns.size()),
        Within(position.topRow, m_rows.size()), Within(position.leftColumn, m_columns.size())};
    if (place == m_position)
    {
        return;
    }
    m_position = place;
    m_positionChangedUnseen = !m_redraw;
    if (m_redraw)
    {
        Tell(&Observer::OnPositionChanged);
    }
}

void GridModel::SizeToContents()
{
    m_sizingUnseen = !m_redraw;
    if (m_redraw)
    {
        Tell(&Observer::OnSizeToContents);
    }
}

void GridModel::SetRedraw(bool on)
{
    m_redraw = on;
    if (!on)
    {
        return;
    }
    if (std::exchange(m_rowsChangedUnseen, false))
    {
        Tell(&Observer::OnRowsChanged);
    }
    if (std::exchange(m_sizingUnseen, false))
    {
        Tell(&Observer::OnSizeToContents);
    }
    if (std::exchange(m_positionChangedUnseen, false))
    {
        Tell(&Observer::OnPositionChanged);
    }
}

} // namespace velmo
