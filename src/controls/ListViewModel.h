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

struct ListColumn
{
    std::string title;
    float width = 0;               ///< Twips: 15 to a device-independent pixel. 0: not sized yet,
                                   ///< as wide as the header and the first rows want.
    std::optional<SortOrder> mark; ///< The arrow in the header; none when not shown.
};

/// Whose rows a list shows. Rows are numbered from 0 as their owner keeps them; columns count from 1.
class ListSource
{
  public:
    virtual ~ListSource() = default;

    [[nodiscard]] virtual std::size_t RowCount() const = 0;
    [[nodiscard]] virtual std::string Key(std::size_t row) const = 0; ///< Unique in the list.
    [[nodiscard]] virtual std::string Text(std::size_t row, std::size_t column) const = 0;
    [[nodiscard]] virtual bool Bold(std::size_t row) const = 0; ///< The whole row.
};

/**
    How a report-style list view shows its source's rows, without drawing it: columns, order, the
    selected row. It keeps no texts: a row's owner is asked for them. An observer (the window's
    control) is told what changed. "Position" is a row's place as shown. User-interface thread.
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
        virtual void OnScrollTo(std::size_t position) = 0; ///< Make the row visible.
    };

    /// @a source must outlive the model; it is first asked when RowsChanged() is called.
    ListViewModel(std::vector<ListColumn> columns, const ListSource& source);

    /// One observer; nullptr for none. It must outlive the model or take itself off.
    void Observe(Observer* observer) { m_observer = observer; }

    [[nodiscard]] const std::vector<ListColumn>& Columns() const { return m_columns; }

    /// Column numbers count from 1 here, as in the settings file.
    void SetColumnWidth(std::size_t column, float twips);
    void SetColumnMark(std::size_t column, std::optional<SortOrder> mark);

    /// Whether a click on a header does something, and it looks like that. At first it does.
    void SetHeadersAreButtons(bool buttons);
    [[nodiscard]] bool HeadersAreButtons() const { return m_headersAreButtons; }

    /// Takes the source's rows anew, keeping the sort, and the selection when its row is still there.
    /// The observer is told of both, since the selected row may read differently.
    void RowsChanged();

    [[nodiscard]] std::size_t RowCount() const { return m_rows.size(); }
    [[nodiscard]] std::string Text(std::size_t position, std::size_t column) const;
    [[nodiscard]] bool Bold(std::size_t position) const;

    /// Selects the row with that key; no such row: selects none. Returns whether there is one.
    bool Select(std::string_view key);
    void SelectAt(std::size_t position);

    /// The selected row's position, and its number in the source.
    [[nodiscard]] std::optional<std::size_t> SelectedPosition() const;
    [[nodiscard]] std::optional<std::size_t> SelectedRow() const;

    /// Asks that the row be made visible; nothing where there is none.
    void ScrollTo(std::optional<std::size_t> position);

    [[nodiscard]] SortOrder Order() const { return m_order; }

    /// 0: rows stay in the source's order.
    [[nodiscard]] std::size_t SortedColumn() const { return m_sortedColumn; }

    /// Sorts by a column (from 1; 0 for none). Numbers inside texts compare as numbers, so that
    /// "10.00.1" follows "8.02.15"; equal rows keep the source's order.
    void Sort(std::size_t column, SortOrder order);

  private:
    void ApplySort();
    template <typename... Arguments>
    void Tell(void (Observer::*event)(Arguments...), Arguments... arguments) const;

    std::vector<ListColumn> m_columns;
    const ListSource& m_source;
    std::vector<std::size_t> m_rows; ///< The source's number of the row at each position.
    std::string m_selectedKey;       ///< Empty: none.
    SortOrder m_order = SortOrder::Ascending;
    std::size_t m_sortedColumn = 0;
    bool m_headersAreButtons = true;
    Observer* m_observer = nullptr;
};

} // namespace velmo
