#pragma once

#include "controls/ListViewModel.h"

#include <cstddef>
#include <string_view>

namespace velmo
{

class CINIFileHandler;

/**
    Sorting by header click and the memory of a list view: the sort state and the column widths live
    in a section of the settings file under "SortOrder", "SortedColumn" and "ColumnHeaderWidth1" and
    on. Failures to read leave the list view as it is. Columns count from 1. User-interface thread.
 */
class CListViewHandler
{
  public:
    /// @a settings must outlive the handler.
    explicit CListViewHandler(CINIFileHandler& settings) : m_settings(settings) {}

    /// Shows the arrow of the list view's current sort order in that column's header, and in no other.
    void MarkSortedColumn(ListViewModel& listView, std::size_t sortedColumn) const;

    /// The header's style: buttons that can be clicked, or flat texts.
    void SetHeaderStyle(ListViewModel& listView, bool buttons) const;

    /// Makes the selected row visible, wherever it has come to stand.
    void ShowSelectedRow(ListViewModel& listView) const;

    /// Sorts by the clicked column, ascending; by the same column once more, the other way round. The
    /// selected row stays in view.
    void ColumnClick(ListViewModel& listView, std::size_t column) const;

    void SaveSort(const ListViewModel& listView, std::string_view section,
                  std::size_t sortedColumn) const;

    /// Applies the saved order and column (none saved: as it is), and marks the column.
    void LoadSort(ListViewModel& listView, std::string_view section) const;

    void LoadWidths(ListViewModel& listView, std::string_view section) const;
    void SaveWidths(const ListViewModel& listView, std::string_view section) const;

  private:
    CINIFileHandler& m_settings;
};

} // namespace velmo
