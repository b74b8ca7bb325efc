#include "ui/CListViewHandler.h"

#include "settings/CINIFileHandler.h"

#include <cmath>
#include <optional>
#include <stdexcept>
#include <string>

namespace velmo
{
namespace
{

constexpr std::string_view kSortOrder = "SortOrder";
constexpr std::string_view kSortedColumn = "SortedColumn";
constexpr float kWidest = 150'000; ///< Twips: some 10,000 pixels.

std::string WidthKey(std::size_t column)
{
    return "ColumnHeaderWidth" + std::to_string(column);
}

} // namespace

void CListViewHandler::MarkSortedColumn(ListViewModel& listView, std::size_t sortedColumn) const
{
    for (std::size_t column = 1; column <= listView.Columns().size(); ++column)
    {
        listView.SetColumnMark(column, column == sortedColumn ? std::optional(listView.Order())
                                                              : std::nullopt);
    }
}

void CListViewHandler::SetHeaderStyle(ListViewModel& listView, bool buttons) const
{
    listView.SetHeadersAreButtons(buttons);
}

void CListViewHandler::ShowSelectedRow(ListViewModel& listView) const
{
    listView.ScrollTo(listView.SelectedPosition());
}

void CListViewHandler::ColumnClick(ListViewModel& listView, std::size_t column) const
{
    const bool again = listView.SortedColumn() == column;
    const bool descending = again && listView.Order() == SortOrder::Ascending;
    listView.Sort(column, descending ? SortOrder::Descending : SortOrder::Ascending);
    MarkSortedColumn(listView, column);
    ShowSelectedRow(listView);
}

void CListViewHandler::SaveSort(const ListViewModel& listView, std::string_view section,
                                std::size_t sortedColumn) const
{
    m_settings.MyWriteAppProfileString(section, kSortOrder,
                                       std::to_string(static_cast<int>(listView.Order())));
    m_settings.MyWriteAppProfileString(section, kSortedColumn, std::to_string(sortedColumn));
}

void CListViewHandler::LoadSort(ListViewModel& listView, std::string_view section) const
{
    try
    {
        const auto order =
            m_settings.MyGetAppProfileLong(section, kSortOrder, static_cast<int>(listView.Order()));
        const auto column = m_settings.MyGetAppProfileLong(
            section, kSortedColumn, static_cast<std::int32_t>(listView.SortedColumn()));
        const bool known =
            column >= 0 && static_cast<std::size_t>(column) <= listView.Columns().size();
        listView.Sort(known ? static_cast<std::size_t>(column) : listView.SortedColumn(),
                      order == 1 ? SortOrder::Descending : SortOrder::Ascending);
        MarkSortedColumn(listView, listView.SortedColumn());
    }
    catch (const std::overflow_error&)
    {
        // A number that no file of ours holds: the list keeps the order it has.
        return;
    }
}

void CListViewHandler::LoadWidths(ListViewModel& listView, std::string_view section) const
{
    for (std::size_t column = 1; column <= listView.Columns().size(); ++column)
    {
        const float current = listView.Columns()[column - 1].width;
        const float width = m_settings.MyGetAppProfileSingle(section, WidthKey(column), current);
        // No other width is one that a person can have chosen.
        if (width > 0 && width <= kWidest)
        {
            listView.SetColumnWidth(column, width);
        }
    }
}

void CListViewHandler::SaveWidths(const ListViewModel& listView, std::string_view section) const
{
    for (std::size_t column = 1; column <= listView.Columns().size(); ++column)
    {
        // Whole twips, so that the text reads the same under either decimal mark.
        const long twips = std::lround(listView.Columns()[column - 1].width);
        m_settings.MyWriteAppProfileString(section, WidthKey(column), std::to_string(twips));
    }
}

} // namespace velmo
