#pragma once

#include "controls/GridModel.h"

#include <wx/font.h>
#include <wx/grid.h>

#include <map>
#include <tuple>

namespace velmo
{

/// What wxGrid asks of a GridModel: texts, looks and merged cells. Looks are shared by all cells that
/// look the same. User-interface thread.
class GridTable final : public wxGridTableBase
{
  public:
    /// @a model must outlive the table.
    GridTable(const GridModel& model, const wxFont& font);
    ~GridTable() override;

    /// Tells the grid how many rows there are now.
    void TellRowCount();

    /// How many the grid was told last.
    [[nodiscard]] int ToldRows() const { return m_toldRows; }

    int GetNumberRows() override;
    int GetNumberCols() override;
    wxString GetValue(int row, int column) override;
    void SetValue(int /*row*/, int /*column*/, const wxString& /*value*/) override {}
    wxString GetColLabelValue(int column) override;
    wxGridCellAttr* GetAttr(int row, int column, wxGridCellAttr::wxAttrKind kind) override;
    bool CanHaveAttributes() override { return true; }

  private:
    /// Background and text colour, bold, tick state (-1: text), rows in its span or minus the distance
    /// to the span's first.
    using Look = std::tuple<int, int, bool, int, int>;

    [[nodiscard]] Look LookOf(std::size_t row, std::size_t column) const;
    [[nodiscard]] wxGridCellAttr* MakeAttr(const Look& look) const;

    const GridModel& m_model;
    wxFont m_font;
    wxFont m_bold;
    int m_toldRows = 0;
    std::map<Look, wxGridCellAttr*> m_looks;
};

} // namespace velmo
