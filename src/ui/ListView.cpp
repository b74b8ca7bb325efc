#include "ui/ListView.h"

#include "ui/Accessible.h"
#include "ui/SortArrow.h"
#include "ui/Twips.h"
#include "ui/WxText.h"

#include <wx/dcclient.h>

#include <algorithm>
#include <utility>

namespace velmo
{
namespace
{

/// Room beside a cell's text, in device-independent pixels; a header has its arrow too.
constexpr int kCellMargin = 24;
constexpr int kHeaderMargin = 40;

/// True while it lives.
class Flag
{
  public:
    explicit Flag(bool& flag) : m_flag(flag), m_before(std::exchange(flag, true)) {}
    ~Flag() { m_flag = m_before; }
    Flag(const Flag&) = delete;
    Flag& operator=(const Flag&) = delete;

  private:
    bool& m_flag;
    bool m_before;
};

} // namespace

ListView::ListView(wxWindow* parent, ListViewModel& model,
                   std::function<void(std::size_t)> headerClicked)
    : wxListCtrl(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                 wxLC_REPORT | wxLC_VIRTUAL | wxLC_SINGLE_SEL),
      m_model(model)
{
    m_boldRow.SetFont(GetFont().Bold());
    for (const ListColumn& column : model.Columns())
    {
        AppendColumn(ToWx(column.title));
    }
    Bind(wxEVT_LIST_COL_CLICK, [this, headerClicked](const wxListEvent& event) {
        if (event.GetColumn() >= 0 && m_model.HeadersAreButtons())
        {
            headerClicked(static_cast<std::size_t>(event.GetColumn()) + 1);
        }
    });
    // A divider can be dragged, or clicked twice: not every system tells of both.
    Bind(wxEVT_IDLE, [this](wxIdleEvent& event) {
        event.Skip();
        TakeWidths();
    });
    Bind(wxEVT_LIST_ITEM_SELECTED,
         [this](const wxListEvent& event) { TakeSelection(event.GetIndex()); });
    // A click beside the rows takes the selection away, here only: one program stays selected.
    Bind(wxEVT_LIST_ITEM_DESELECTED, [this](const wxListEvent&) {
        if (!m_showing)
        {
            CallAfter([this] { ShowSelection(); });
        }
    });
    Bind(wxEVT_SIZE, [this](wxSizeEvent& event) {
        event.Skip();
        ShowWidths();
    });
    model.Observe(this);
    OnColumnsChanged();
    OnRowsChanged();
}

ListView::~ListView()
{
    m_model.Observe(nullptr);
}

void ListView::TakeSelection(long item)
{
    if (!m_showing && item >= 0)
    {
        m_model.SelectAt(static_cast<std::size_t>(item));
    }
}

void ListView::OnRowsChanged()
{
    SetItemCount(static_cast<long>(m_model.RowCount()));
    SizeNewColumns();
    ShowSelection();
    Refresh();
}

void ListView::OnColumnsChanged()
{
    if (!m_showing)
    {
        ShowWidths();
    }
    ShowMarks();
}

void ListView::SizeNewColumns()
{
    const std::size_t columns = m_model.Columns().size();
    if (m_model.RowCount() == 0 || columns == 0)
    {
        return;
    }
    for (std::size_t column = 1; column <= columns; ++column)
    {
        if (m_model.Columns()[column - 1].width <= 0)
        {
            m_model.SetColumnWidth(column,
                                   static_cast<float>(TwipsOfPixels(*this, WidthFor(column))));
        }
    }
    m_leastLast = WidthFor(columns);
}

int ListView::WidthFor(std::size_t column)
{
    wxClientDC dc(this);
    dc.SetFont(m_boldRow.GetFont());
    int width =
        dc.GetTextExtent(ToWx(m_model.Columns()[column - 1].title)).x + FromDIP(kHeaderMargin);
    for (std::size_t row = 0; row < m_model.RowCount(); ++row)
    {
        const int text = dc.GetTextExtent(ToWx(m_model.Text(row, column))).x;
        width = std::max(width, text + FromDIP(kCellMargin));
    }
    return width;
}

void ListView::ShowWidths()
{
    const Flag showing(m_showing);
    const std::vector<ListColumn> columns = m_model.Columns();
    m_shownWidths.resize(columns.size());
    int left = GetClientSize().GetWidth();
    for (std::size_t i = 0; i < columns.size(); ++i)
    {
        int width = PixelsOfTwips(*this, columns[i].width);
        const bool isKnown = columns[i].width > 0;
        if (i + 1 == columns.size())
        {
            // So that no row ends in the middle of the control. What it grew by, it gives back.
            width = std::max(m_lastFills ? m_leastLast : width, left);
            m_lastFills = isKnown && width == left;
        }
        const int column = static_cast<int>(i);
        if (GetColumnWidth(column) != width)
        {
            SetColumnWidth(column, width);
        }
        m_shownWidths[i] = GetColumnWidth(column);
        left -= width;
        if (isKnown && width != PixelsOfTwips(*this, columns[i].width))
        {
            m_model.SetColumnWidth(i + 1, static_cast<float>(TwipsOfPixels(*this, width)));
        }
    }
}

void ListView::TakeWidths()
{
    const Flag showing(m_showing);
    bool isChanged = false;
    for (std::size_t i = 0; i < m_shownWidths.size(); ++i)
    {
        const int width = GetColumnWidth(static_cast<int>(i));
        if (std::exchange(m_shownWidths[i], width) != width)
        {
            isChanged = true;
            m_lastFills = m_lastFills && i + 1 < m_shownWidths.size();
            m_model.SetColumnWidth(i + 1, static_cast<float>(TwipsOfPixels(*this, width)));
        }
    }
    if (isChanged)
    {
        ShowWidths();
        Refresh(); // A click on a divider need not paint the headers.
    }
}

void ListView::ShowMarks()
{
    int marked = -1;
    bool ascending = true;
    for (std::size_t i = 0; i < m_model.Columns().size(); ++i)
    {
        if (const auto mark = m_model.Columns()[i].mark)
        {
            marked = static_cast<int>(i);
            ascending = *mark == SortOrder::Ascending;
        }
    }
    ShowSortArrow(*this, marked, ascending);
    ShowHeaderStyle(*this, m_model.HeadersAreButtons());
}

void ListView::ShowSelection()
{
    const Flag showing(m_showing);
    const auto selected = m_model.SelectedPosition();
    const long target = selected ? static_cast<long>(*selected) : -1;
    const long current = GetNextItem(-1, wxLIST_NEXT_ALL, wxLIST_STATE_SELECTED);
    if (current >= 0 && current != target)
    {
        SetItemState(current, 0, wxLIST_STATE_SELECTED | wxLIST_STATE_FOCUSED);
    }
    if (target >= 0)
    {
        wxString row;
        for (std::size_t column = 1; column <= m_model.Columns().size(); ++column)
        {
            row += ToWx(m_model.Columns()[column - 1].title + ": " +
                        m_model.Text(*selected, column) + ". ");
        }
        TellReaders(*this, row);
    }
    if (target >= 0 && current != target)
    {
        const long state = wxLIST_STATE_SELECTED | wxLIST_STATE_FOCUSED;
        SetItemState(target, state, state);
    }
}

void ListView::OnSelectionChanged()
{
    ShowSelection();
    if (m_selectionChanged)
    {
        m_selectionChanged();
    }
}

void ListView::OnScrollTo(std::size_t position)
{
    EnsureVisible(static_cast<long>(position));
}

wxString ListView::OnGetItemText(long item, long column) const
{
    return ToWx(m_model.Text(static_cast<std::size_t>(item), static_cast<std::size_t>(column) + 1));
}

wxItemAttr* ListView::OnGetItemAttr(long item) const
{
    return m_model.Bold(static_cast<std::size_t>(item)) ? &m_boldRow : nullptr;
}

} // namespace velmo
