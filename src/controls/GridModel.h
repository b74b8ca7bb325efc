#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace velmo
{

/// A cell's tick box.
enum class TickState : std::uint8_t
{
    None, ///< The cell has no box.
    Unticked,
    Ticked,
};

struct Colour
{
    std::uint8_t red = 0;
    std::uint8_t green = 0;
    std::uint8_t blue = 0;

    [[nodiscard]] bool operator==(const Colour&) const = default;
};

struct GridColumn
{
    std::string header; ///< Lines joined by CR LF; may be empty.
    float width = 0;    ///< Twips: 15 to a device-independent pixel. 0: not sized yet.
    bool hidden = false;
    bool merged = false; ///< Equal adjacent cells are shown as one, see SpanAt().
    bool ticks = false;  ///< May hold tick boxes; they are drawn centred.
};

struct GridCell
{
    std::string text;
    TickState tick = TickState::None;
};

struct GridRow
{
    std::vector<GridCell> cells; ///< As many as there are columns.
    Colour background{255, 255, 255};
    Colour textColour{};
    bool bold = false;
};

/// Rows that are shown as one cell.
struct GridSpan
{
    std::uint32_t first = 0;
    std::uint32_t count = 1;
};

/// Where the grid's cursor is and what it is scrolled to; rows and columns count from 0.
struct GridPosition
{
    std::size_t row = 0;
    std::size_t column = 0;
    std::size_t topRow = 0;
    std::size_t leftColumn = 0;

    [[nodiscard]] bool operator==(const GridPosition&) const = default;
};

/**
    What a grid holds, without drawing it: a header, data rows of text and tick boxes, the cursor and
    the place it is scrolled to. Rows are plain data, so that 50,000 of them are cheap. Rows and columns
    count from 0; rows are data rows. An argument out of range is the caller's mistake (std::out_of_range),
    but for positions, which are brought into range.

    While redrawing is off the observer hears nothing; when it is switched on again it hears
    OnRowsChanged() once, if rows or cells changed, then OnPositionChanged() if that changed.
    User-interface thread.
 */
class GridModel
{
  public:
    class Observer
    {
      public:
        virtual ~Observer() = default;
        virtual void OnRowsChanged() = 0; ///< Rows added, removed or rewritten.
        virtual void OnCellChanged(std::size_t row, std::size_t column) = 0; ///< Its tick.
        virtual void OnColumnCellsChanged(std::size_t column) = 0; ///< Ticks of many rows.
        virtual void OnPositionChanged() = 0; ///< By MoveTo() or because rows went.
        virtual void OnSizeToContents() = 0;  ///< Size the columns, then the rows.
    };

    explicit GridModel(std::vector<GridColumn> columns);

    /// One observer; nullptr for none. It must outlive the model or take itself off.
    void Observe(Observer* observer) { m_observer = observer; }

    [[nodiscard]] const std::vector<GridColumn>& Columns() const { return m_columns; }
    [[nodiscard]] const std::vector<GridRow>& Rows() const { return m_rows; }
    [[nodiscard]] const std::string& Text(std::size_t row, std::size_t column) const;
    [[nodiscard]] TickState Tick(std::size_t row, std::size_t column) const;

    /// What the window made of a column's width; nobody is told.
    void NoteColumnWidth(std::size_t column, float twips) { m_columns.at(column).width = twips; }

    /// Removes all rows; the cursor and the scrolled place go to 0.
    void Clear();

    /// Adds a row at the bottom. Missing cells are empty.
    void Append(GridRow row);

    /// Sets one box. A cell without a box stays without one. Returns whether anything changed.
    bool SetTick(std::size_t row, std::size_t column, TickState state);

    /// Sets every box of a column that @a wanted (given the row's number) asks for. The observer is
    /// told once.
    void SetTicks(std::size_t column, TickState state,
                  const std::function<bool(std::size_t row)>& wanted);

    /// The rows that are shown as one cell at that place: neighbours of equal, not empty text in a
    /// merged column. Cells with a box are never merged, since each box has a state of its own.
    /// Constant time, after one pass over the rows for each change of them.
    [[nodiscard]] GridSpan SpanAt(std::size_t row, std::size_t column) const;

    /// The text with the most characters in a column's rows (not its header), for its width.
    [[nodiscard]] const std::string& LongestText(std::size_t column) const;

    [[nodiscard]] const GridPosition& Position() const { return m_position; }

    /// Moves the cursor and scrolls, as far as there are rows, and tells the observer.
    void MoveTo(const GridPosition& position);

    /// What the user made of the position in the window; nobody is told.
    void NotePosition(const GridPosition& position) { m_position = position; }

    /// Asks that columns and rows be sized to their contents.
    void SizeToContents();

    /// Off: the observer hears nothing until it is on again.
    void SetRedraw(bool on);
    [[nodiscard]] bool Redraw() const { return m_redraw; }

  private:
    /// What is worked out from the rows when it is asked for.
    struct Layout
    {
        std::vector<std::vector<GridSpan>> spans; ///< By column; empty for one that is not merged.
        std::vector<std::size_t> longestRow;      ///< By column.
    };

    [[nodiscard]] const Layout& CurrentLayout() const;
    [[nodiscard]] std::vector<GridSpan> Spans(std::size_t column) const;
    [[nodiscard]] std::size_t LongestRow(std::size_t column) const;
    [[nodiscard]] bool IsMergedWithNext(std::size_t row, std::size_t column) const;
    void RowsChanged();
    template <typename... Arguments>
    void Tell(void (Observer::*event)(Arguments...), Arguments... arguments) const;

    std::vector<GridColumn> m_columns;
    std::vector<GridRow> m_rows;
    mutable std::optional<Layout> m_layout;
    GridPosition m_position;
    bool m_redraw = true;
    bool m_rowsChangedUnseen = false;
    bool m_positionChangedUnseen = false;
    bool m_sizingUnseen = false;
    Observer* m_observer = nullptr;
};

} // namespace velmo
