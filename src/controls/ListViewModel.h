#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace velmo
{

enum class SortOrder
{
    Ascending = 0,
    Descending = 1,
};

/// One row of a list: its cells in column order.
struct ListRow
{
    std::string key; ///< Unique in the list.
    std::vector<std::string> cells;
    bool bold = false; ///< The whole row.
};

struct ListColumn
{
    std::string title;
    float width = 0;               ///< Twips: 15 to a device-independent pixel. 0: not sized yet,
                                   ///< as wide as the header and the first rows want.
    std::optional<SortOrder> mark; ///< The arrow in the header; none when not shown.
};

/**
    What a report-style list view holds, without drawing it: columns, rows, the selected row and the
    sort state. An observer (the window's control) is told what changed. User-interface thread.
 */
class ListViewModel
{
  public:
    class Observer
    {
      public:
        virtual ~Observer() = default;
        virtual void OnRowsChanged() = 0;    ///< Rows added, removed, reordered or rewritten.
        virtual void OnColumnsChanged() = 0; ///< Widths or marks.
        virtual void
        OnSelectionChanged() = 0; ///< Another row, or none, is selected, or it reads differently.
        virtual void OnScrollToRow(std::size_t row) = 0; ///< Make the row visible.
    };

    explicit ListViewModel(std::vector<ListColumn> columns);

    /// One observer; nullptr for none. It must outlive the model or take itself off.
    void Observe(Observer* observer) { m_observer = observer; }

    [[nodiscard]] const std::vector<ListColumn>& Columns() const { return m_columns; }
    [[nodiscard]] const std::vector<ListRow>& Rows() const { return m_rows; }

    /// Column numbers count from 1 here, as in the settings file.
    void SetColumnWidth(std::size_t column, float twips);
    void SetColumnMark(std::size_t column, std::optional<SortOrder> mark);

    /// Replaces all rows, keeping the sort, and the selection when its row is still there. The
    /// observer is told of both, since the selected row may read differently.
    void SetRows(std::vector<ListRow> rows);

    /// Rewrites one cell (column from 1) of the row with that key.
    void SetCell(std::string_view key, std::size_t column, std::string text);

    /// The row with that key, or nullptr. Valid until the rows change.
    [[nodiscard]] const ListRow* Find(std::string_view key) const;

    /// Selects the row with that key; no such row: selects none. Returns whether there is one.
    bool Select(std::string_view key);
    [[nodiscard]] const ListRow* SelectedRow() const;

    /// Asks that the row with that key be made visible.
    void ScrollTo(std::string_view key);

    [[nodiscard]] SortOrder Order() const { return m_order; }

    /// 0: rows stay in the order they came in.
    [[nodiscard]] std::size_t SortedColumn() const { return m_sortedColumn; }

    /// Sorts by a column (from 1; 0 for none). Numbers inside texts compare as numbers, so that
    /// "10.00.1" follows "8.02.15"; equal rows keep the order they came in.
    void Sort(std::size_t column, SortOrder order);

  private:
    [[nodiscard]] std::optional<std::size_t> PositionOf(std::string_view key) const;
    void ApplySort();
    template <typename... Arguments>
    void Tell(void (Observer::*event)(Arguments...), Arguments... arguments) const;

    std::vector<ListColumn> m_columns;
    std::vector<ListRow> m_rows;
    std::vector<std::string> m_keysAsAdded;
    std::string m_selectedKey; ///< Empty: none.
    SortOrder m_order = SortOrder::Ascending;
    std::size_t m_sortedColumn = 0;
    Observer* m_observer = nullptr;
};

} // namespace velmo
