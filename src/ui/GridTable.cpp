#include "ui/GridTable.h"

#include "ui/CellRenderer.h"
#include "ui/WxText.h"

namespace velmo
{
namespace
{

constexpr int kNoTick = -1;

int Packed(const Colour& colour)
{
    return (colour.red << 16) | (colour.green << 8) | colour.blue;
}

wxColour Unpacked(int colour)
{
    return {static_cast<unsigned char>(colour >> 16), static_cast<unsigned char>(colour >> 8),
            static_cast<unsigned char>(colour)};
}

} // namespace

GridTable::GridTable(const GridModel& model, const wxFont& font)
    : m_model(model), m_font(font), m_bold(font.Bold()),
      m_toldRows(static_cast<int>(model.Rows().RowCount()))
{}

GridTable::~GridTable()
{
    for (const auto& [look, attr] : m_looks)
    {
        attr->DecRef();
    }
}

void GridTable::TellRowCount()
{
    const int rows = GetNumberRows();
    const int difference = rows - m_toldRows;
    m_toldRows = rows;
    if (difference > 0)
    {
        wxGridTableMessage message(this, wxGRIDTABLE_NOTIFY_ROWS_APPENDED, difference);
        GetView()->ProcessTableMessage(message);
    }
    else if (difference < 0)
    {
        wxGridTableMessage message(this, wxGRIDTABLE_NOTIFY_ROWS_DELETED, rows, -difference);
        GetView()->ProcessTableMessage(message);
    }
}

int GridTable::GetNumberRows()
{
    return static_cast<int>(m_model.Rows().RowCount());
}

int GridTable::GetNumberCols()
{
    return static_cast<int>(m_model.Columns().size());
}

wxString GridTable::GetValue(int row, int column)
{
    return row < GetNumberRows() ? ToWx(m_model.Rows().Text(static_cast<std::size_t>(row),
                                                            static_cast<std::size_t>(column)))
                                 : wxString();
}

wxString GridTable::GetColLabelValue(int column)
{
    wxString label = ToWx(m_model.Columns()[static_cast<std::size_t>(column)].header);
    label.Replace("\r\n", "\n");
    return label;
}

GridTable::Look GridTable::LookOf(std::size_t row, std::size_t column) const
{
    const GridLook look = m_model.Rows().Look(row);
    const TickState tick = m_model.Rows().Tick(row, column);
    const GridSpan span = m_model.SpanAt(row, column);
    const int place = row == span.first ? static_cast<int>(span.count)
                                        : static_cast<int>(span.first) - static_cast<int>(row);
    return {Packed(look.background), Packed(look.text), look.bold,
            tick == TickState::None ? kNoTick : static_cast<int>(tick == TickState::Ticked), place};
}

wxGridCellAttr* GridTable::MakeAttr(const Look& look) const
{
    const auto& [background, text, bold, tick, place] = look;
    auto* attr = new wxGridCellAttr;
    attr->SetBackgroundColour(Unpacked(background));
    attr->SetTextColour(Unpacked(text));
    attr->SetFont(bold ? m_bold : m_font);
    attr->SetAlignment(wxALIGN_LEFT, wxALIGN_CENTRE);
    attr->SetReadOnly();
    attr->SetRenderer(tick == kNoTick ? new CellRenderer : new TickRenderer(tick == 1));
    // A covered cell names the distance to the one that covers it.
    attr->SetSize(place, place > 0 ? 1 : 0);
    return attr;
}

wxGridCellAttr* GridTable::GetAttr(int row, int column, wxGridCellAttr::wxAttrKind /*kind*/)
{
    if (row < 0 || column < 0 || row >= GetNumberRows() || column >= GetNumberCols())
    {
        return nullptr;
    }
    const Look look = LookOf(static_cast<std::size_t>(row), static_cast<std::size_t>(column));
    auto found = m_looks.find(look);
    if (found == m_looks.end())
    {
        found = m_looks.emplace(look, MakeAttr(look)).first;
    }
    found->second->IncRef();
    return found->second;
}

} // namespace velmo
