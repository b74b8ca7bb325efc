#include "controls/GridModel.h"

#include "text/Utf8.h"

#include <algorithm>
#include <utility>

namespace velmo
{
namespace
{

/// The nearest number below @a count; 0 when there is none.
std::size_t Within(std::size_t number, std::size_t count)
{
    return count == 0 ? 0 : std::min(number, count - 1);
}

} // namespace

GridModel::GridModel(std::vector<GridColumn> columns, const GridSource& source)
    : m_columns(std::move(columns)), m_source(source)
{}

template <typename... Arguments>
void GridModel::Tell(void (Observer::*event)(Arguments...), Arguments... arguments) const
{
    if (m_observer != nullptr)
    {
        (m_observer->*event)(arguments...);
    }
}

void GridModel::RowsChanged()
{
    Tell(&Observer::OnRowsChanged);
    Tell(&Observer::OnSizeToContents);
    // A control loses its place with its rows.
    if (m_position != GridPosition{})
    {
        MoveTo(m_position);
    }
}

void GridModel::Show(std::size_t column, bool shown)
{
    if (m_columns.at(column).hidden == shown)
    {
        m_columns[column].hidden = !shown;
        Tell(&Observer::OnColumnsShown);
    }
}

void GridModel::CellChanged(std::size_t row, std::size_t column) const
{
    Tell(&Observer::OnCellChanged, row, column);
}

void GridModel::ColumnChanged(std::size_t column) const
{
    Tell(&Observer::OnColumnCellsChanged, column);
}

GridSpan GridModel::SpanAt(std::size_t row, std::size_t column) const
{
    const bool isMerged =
        m_columns.at(column).merged && m_source.Tick(row, column) == TickState::None;
    return isMerged ? m_source.Group(row) : GridSpan{row, 1};
}

std::string GridModel::LongestText(std::size_t column) const
{
    std::string longest;
    std::size_t longestCount = 0;
    for (std::size_t row = 0; row < m_source.RowCount();)
    {
        std::string text = m_source.Text(row, column);
        // No text has more characters than bytes.
        if (const std::size_t count = text.size() > longestCount ? CharacterCount(text) : 0;
            count > longestCount)
        {
            longest = std::move(text);
            longestCount = count;
        }
        const GridSpan span = SpanAt(row, column);
        row = span.first + span.count;
    }
    return longest;
}

void GridModel::MoveTo(const GridPosition& position)
{
    const std::size_t rows = m_source.RowCount();
    m_position = {Within(position.row, rows), Within(position.column, m_columns.size()),
                  Within(position.topRow, rows), Within(position.leftColumn, m_columns.size())};
    Tell(&Observer::OnPositionChanged);
}

} // namespace velmo
