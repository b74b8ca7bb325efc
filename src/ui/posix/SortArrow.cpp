#include "ui/SortArrow.h"

#include <wx/listctrl.h>

namespace velmo
{

void ShowSortArrow(wxListCtrl& list, int column, bool ascending)
{
    if (column >= 0)
    {
        list.ShowSortIndicator(column, ascending);
    }
    else
    {
        list.RemoveSortIndicator();
    }
}

void ShowHeaderStyle(wxListCtrl& /*list*/, bool /*buttons*/) {}

} // namespace velmo
