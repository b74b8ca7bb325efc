#include "controls/ListViewModel.h"

#include "controls/NaturalOrder.h"

#include <algorithm>
#include <unordered_map>
#include <utility>

namespace velmo
{

ListViewModel::ListViewModel(std::vector<ListColumn> columns) : m_columns(std::move(columns)) {}

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

void ListViewModel::SetRows(std::vector<ListRow> rows)
{
    m_rows = std::move(rows);
    m_keysAsAdded.clear();
    for (ListRow& row : m_rows)
    {
        row.cells.resize(m_columns.size());
        m_keysAsAdded.push_back(row.key);
    }
    if (!PositionOf(m_selectedKey))
    {
        m_selectedKey.clear();
    }
    ApplySort();
    Tell(&Observer::OnRowsChanged);
    Tell(&Observer::OnSelectionChanged);
}

void ListViewModel::SetCell(std::string_view key, std::size_t column, std::string text)
{
    const auto position = PositionOf(key);
    if (position && column >= 1 && column <= m_columns.size())
    {
        m_rows[*position].cells[column - 1] = std::move(text);
        ApplySort();
        Tell(&Observer::OnRowsChanged);
    }
}

const ListRow* ListViewModel::Find(std::string_view key) const
{
    const auto position = PositionOf(key);
    return position ? &m_rows[*position] : nullptr;
}

bool ListViewModel::Select(std::string_view key)
{
    const bool found = PositionOf(key).has_value();
    const std::string_view selected = found ? key : std::string_view();
    if (m_selectedKey != selected)
    {
        m_selectedKey = selected;
        Tell(&Observer::OnSelectionChanged);
    }
    return found;
}

const ListRow* ListViewModel::SelectedRow() const
{
    return m_selectedKey.empty() ? nullptr : Find(m_selectedKey);
}

void ListViewModel::ScrollTo(std::string_view key)
{
    if (const auto position = PositionOf(key))
    {
        Tell(&Observer::OnScrollToRow, *position);
    }
}

void ListViewModel::Sort(std::size_t column, SortOrder order)
{
    m_sortedColumn = column <= m_columns.size() ? column : 0;
    m_order = order;
    ApplySort();
    Tell(&Observer::OnRowsChanged);
}

std::optional<std::size_t> ListViewModel::PositionOf(std::string_view key) const
{
    const auto found = std::find_if(m_rows.begin(), m_rows.end(),
                                    [=](const ListRow& row) { return row.key == key; });
    if (found == m_rows.end())
    {
        return std::nullopt;
    }
    return static_cast<std::size_t>(found - m_rows.begin());
}

void ListViewModel::ApplySort()
{
    std::unordered_map<std::string_view, std::size_t> cameIn;
    for (std::size_t i = 0; i < m_keysAsAdded.size(); ++i)
    {
        cameIn.emplace(m_keysAsAdded[i], i);
    }
    std::sort(m_rows.begin(), m_rows.end(), [&](const ListRow& a, const ListRow& b) {
        if (m_sortedColumn != 0)
        {
            const std::size_t cell = m_sortedColumn - 1;
            const int difference = CompareNaturally(a.cells[cell], b.cells[cell]);
            if (difference != 0)
            {
                return (difference < 0) == (m_order == SortOrder::Ascending);
            }
        }
        return cameIn.at(a.key) < cameIn.at(b.key);
    });
}

} // namespace velmo
