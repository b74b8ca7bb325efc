#pragma once

#include <cstddef>
#include <cstdint>
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
    bool hidden = false;
    bool merged = false; ///< A group's cells are shown as one, see SpanAt().
    bool ticks = false;  ///< May hold tick boxes; they are drawn centred.
};

/// What a whole row looks like.
struct GridLook
{
    Colour background{255, 255, 255};
    Colour text{};
    bool bold = false;

    [[nodiscard]] bool operator==(const GridLook&) const = default;
};

/// Rows that are shown as one cell.
struct GridSpan
{
    std::size_t first = 0;
    std::size_t count = 1;

    [[nodiscard]] bool operator==(const GridSpan&) const = default;
};

/// Whose rows a grid shows. Rows and columns count from 0; one out of range is the caller's mistake
/// (std::out_of_range).
class GridSource
{
  public:
    virtual ~GridSource() = default;

    [[nodiscard]] virtual std::size_t RowCount() const = 0;
    [[nodiscard]] virtual std::string Text(std::size_t row, std::size_t column) const = 0;
    [[nodiscard]] virtual TickState Tick(std::size_t row, std::size_t column) const = 0;
    [[nodiscard]] virtual GridLook Look(std::size_t row) const = 0;

    /// What more there is to say about a cell than its text; may be empty.
    [[nodiscard]] virtual std::string Tip(std::size_t /*row*/, std::size_t /*column*/) const
    {
        return {};
    }

    /// The neighbours that share their values in the merged columns.
    [[nodiscard]] virtual GridSpan Group(std::size_t row) const = 0;
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
    How a grid shows its source's rows, without drawing it: columns, the cursor, the place it is
    scrolled to. It keeps no texts: the rows' owner is asked for them, and says what changed, which the
    observer (the window's control) hears. User-interface thread.
 */
class GridModel
{
  public:
    class Observer
    {
      public:
        virtual ~Observer() = default;
        virtual void OnRowsChanged() = 0; ///< All of them, their number too.
        virtual void OnCellChanged(std::size_t row, std::size_t column) = 0; ///< Its tick.
        virtual void OnColumnCellsChanged(std::size_t column) = 0; ///< Ticks of many rows.
        virtual void OnPositionChanged() = 0;                      ///< By MoveTo().
        virtual void OnSizeToContents() = 0; ///< Size the columns, then the rows.
        virtual void OnColumnsShown() = 0;   ///< Others are hidden now.
    };

    /// @a source must outlive the model; it is first asked when RowsChanged() is called.
    GridModel(std::vector<GridColumn> columns, const GridSource& source);

    /// One observer; nullptr for none. It must outlive the model or take itself off.
    void Observe(Observer* observer) { m_observer = observer; }

    [[nodiscard]] const std::vector<GridColumn>& Columns() const { return m_columns; }
    [[nodiscard]] const GridSource& Rows() const { return m_source; }

    /// Shows or hides a column.
    void Show(std::size_t column, bool shown);

    // What the source tells.

    /// The rows are other ones. The place stays where it is as far as there are rows; columns and rows
    /// are sized to their contents.
    void RowsChanged();
    void CellChanged(std::size_t row, std::size_t column) const;
    void ColumnChanged(std::size_t column) const;

    /// The rows that are shown as one cell at that place: in a merged column those of the row's group.
    /// Cells with a box are never merged, since each box has a state of its own.
    [[nodiscard]] GridSpan SpanAt(std::size_t row, std::size_t column) const;

    /// The text with the most characters in a column's rows (not its header), for its width.
    [[nodiscard]] std::string LongestText(std::size_t column) const;

    [[nodiscard]] const GridPosition& Position() const { return m_position; }

    /// Moves the cursor and scrolls, as far as there are rows, and tells the observer.
    void MoveTo(const GridPosition& position);

    /// What the user made of the position in the window; nobody is told.
    void NotePosition(const GridPosition& position) { m_position = position; }

  private:
    template <typename... Arguments>
    void Tell(void (Observer::*event)(Arguments...), Arguments... arguments) const;

    std::vector<GridColumn> m_columns;
    const GridSource& m_source;
    GridPosition m_position;
    Observer* m_observer = nullptr;
};

} // namespace velmo
