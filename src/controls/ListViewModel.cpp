#include "controls/ListViewModel.h"

#include "text/NaturalOrder.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace velmo
{

ListViewModel::ListViewModel(std::vector<ListColumn> columns, const ListSource& source)
    : m_columns(std::move(columns)), m_source(source)
{}

template <typename... Arguments>
void ListViewModel::Tell(void (Observer::*event)(Arguments...), Arguments... arguments) const
{
    if (m_observer != nullptr)
    {
        (m_observer->*event)(arguments...);
    }
}

void ListViewModel::SetColumnWidth(std::size_t column, float twips)
{
    if (column >= 1 && column <= m_columns.size() && m_columns[column - 1].width != twips)
    {
        m_columns[column - 1].width = twips;
        Tell(&Observer::OnColumnsChanged);
    }
}

void ListViewModel::SetColumnMark(std::size_t column, std::optional<SortOrder> mark)
{
    if (column >= 1 && column <= m_columns.size() && m_columns[column - 1].mark != mark)
    {
        m_columns[column - 1].mark = mark;
        Tell(&Observer::OnColumnsChanged);
    }
}

void ListViewModel::SetHeadersAreButtons(bool buttons)
{
    m_headersAreButtons = buttons;
    Tell(&Observer::OnColumnsChanged);
}

void ListViewModel::RowsChanged()
{
    m_rows.resize(m_source.RowCount());
    ApplySort();
    if (!SelectedPosition())
    {
        m_selectedKey.clear();
    }
    Tell(&Observer::OnRowsChanged);
    Tell(&Observer::OnSelectionChanged);
}

std::string ListViewModel::Text(std::size_t position, std::size_t column) const
{
    return position < m_rows.size() ? m_source.Text(m_rows[position], column) : std::string();
}

bool ListViewModel::Bold(std::size_t position) const
{
    return position < m_rows.size() && m_source.Bold(m_rows[position]);
}

bool ListViewModel::Select(std::string_view key)
{
    const std::string before = std::exchange(m_selectedKey, key);
    const bool found = SelectedPosition().has_value();
    if (!found)
    {
        m_selectedKey.clear();
    }
    if (m_selectedKey != before)
    {
        Tell(&Observer::OnSelectionChanged);
    }
    return found;
}

void ListViewModel::SelectAt(std::size_t position)
{
    if (position < m_rows.size())
    {
        Select(m_source.Key(m_rows[position]));
    }
}

std::optional<std::size_t> ListViewModel::SelectedPosition() const
{
    const auto found = std::ranges::find_if(
        m_rows, [this](std::size_t row) { return m_source.Key(row) == m_selectedKey; });
    if (m_selectedKey.empty() || found == m_rows.end())
    {
        return std::nullopt;
    }
    return static_cast<std::size_t>(found - m_rows.begin());
}

std::optional<std::size_t> ListViewModel::SelectedRow() const
{
    const auto position = SelectedPosition();
    return position ? std::optional(m_rows[*position]) : std::nullopt;
}

void ListViewModel::ScrollTo(std::optional<std::size_t> position)
{
    if (position && *position < m_rows.size())
    {
        Tell(&Observer::OnScrollTo, *position);
    }
}

void ListViewModel::Sort(std::size_t column, SortOrder order)
{
    m_sortedColumn = column <= m_columns.size() ? column : 0;
    m_order = order;
    ApplySort();
    Tell(&Observer::OnRowsChanged);
}

void ListViewModel::ApplySort()
{
    std::iota(m_rows.begin(), m_rows.end(), std::size_t{0});
    if (m_sortedColumn == 0)
    {
        return;
    }
    std::vector<std::string> texts;
    for (const std::size_t row : m_rows)
    {
        texts.push_back(m_source.Text(row, m_sortedColumn));
    }
    std::ranges::stable_sort(m_rows, [&](std::size_t a, std::size_t b) {
        const int difference = CompareNaturally(texts[a], texts[b]);
        return m_order == SortOrder::Ascending ? difference < 0 : difference > 0;
    });
}

} // namespace velmo
