#pragma once

#include "controls/ListViewModel.h"

#include <wx/listctrl.h>

#include <functional>
#include <vector>

namespace velmo
{

/**
    A report list that draws a ListViewModel, in virtual mode: no object per row. The person's
    selection, column widths and header clicks go back to the model and to the callbacks. The last
    column reaches to the right edge; its width in the model is the one that is seen.
 */
class ListView final : public wxListCtrl, private ListViewModel::Observer
{
  public:
    /// @a model must outlive the control. @a headerClicked gets the column, from 1.
    ListView(wxWindow* parent, ListViewModel& model,
             std::function<void(std::size_t)> headerClicked);
    ~ListView() override;

    /// Called after the selection changed, by the person or by the program.
    void OnSelection(std::function<void()> changed) { m_selectionChanged = std::move(changed); }

  private:
    void OnRowsChanged() override;
    void OnColumnsChanged() override;
    void OnSelectionChanged() override;
    void OnScrollTo(std::size_t position) override;

    wxString OnGetItemText(long item, long column) const override;
    wxItemAttr* OnGetItemAttr(long item) const override;

    void ShowSelection();
    void ShowMarks();
    void ShowWidths();
    void SizeNewColumns();
    void TakeWidths();
    [[nodiscard]] int WidthFor(std::size_t column);
    void TakeSelection(long item);

    ListViewModel& m_model;
    std::function<void()> m_selectionChanged;
    mutable wxItemAttr m_boldRow;
    std::vector<int> m_shownWidths; ///< Pixels, as the program set them.
    int m_leastLast = 0;            ///< Width that the last column's texts want, in pixels.
    bool m_lastFills = false;       ///< The last column is as wide as it is to reach the edge.
    bool m_showing = false; ///< The control is being changed by the program, not by the person.
};

} // namespace velmo
