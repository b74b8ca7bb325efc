#pragma once

#include "controls/GridModel.h"

#include <wx/grid.h>

#include <functional>

namespace velmo
{

class EmptyNote;
class GridTable;

/**
    A grid that draws a GridModel: multi-line headers, tick boxes, merged cells, row colours, the first
    column always in view. It keeps no cells of its own, so that many thousand rows cost nothing but
    their painting. Text that a narrow column cuts wraps while there is room, then ends in an ellipsis
    and is told whole in a tip. The person's ticks (a click on a box, or the space bar in its cell),
    cursor and column widths go back to the model.
 */
class Grid final : public wxGrid, private GridModel::Observer
{
  public:
    /// @a model must outlive the control. @a tickClicked is called for a tick by the person, with the
    /// row and column of the box; it changes the model.
    Grid(wxWindow* parent, GridModel& model,
         std::function<void(std::size_t row, std::size_t column)> tickClicked);
    ~Grid() override;

    /// What stands in the grid while it has no rows.
    void SetEmptyText(const wxString& text);

  private:
    void OnRowsChanged() override;
    void OnCellChanged(std::size_t row, std::size_t column) override;
    void OnColumnCellsChanged(std::size_t column) override;
    void OnPositionChanged() override;
    void OnSizeToContents() override;
    void OnColumnsShown() override;

    void BindEvents();
    void BindPointer(wxWindow& window);
    void FreezeFirstColumn();
    void SizeRows();
    [[nodiscard]] wxString TipAt(int row, int column);
    void OnKey(wxKeyEvent& event);
    void ToggleAtCursor();
    void NotePosition();
    void TellCell(int row, int column);
    [[nodiscard]] int WidthFor(std::size_t column);

    GridModel& m_model;
    std::function<void(std::size_t, std::size_t)> m_tickClicked;
    GridTable* m_table = nullptr; ///< Owned by the grid.
    EmptyNote* m_emptyNote = nullptr;
};

} // namespace velmo
