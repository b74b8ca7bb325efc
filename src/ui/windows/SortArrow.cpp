#include "ui/SortArrow.h"

#include <wx/listctrl.h>
#include <wx/msw/wrapcctl.h>

namespace velmo
{

void ShowSortArrow(wxListCtrl& list, int column, bool ascending)
{
    // The toolkit's own indicator does not reach the native header under every system.
    HWND header = ListView_GetHeader(static_cast<HWND>(list.GetHWND()));
    for (int i = 0, n = Header_GetItemCount(header); i < n; ++i)
    {
        HDITEM item = {};
        item.mask = HDI_FORMAT;
        Header_GetItem(header, i, &item);
        item.fmt &= ~(HDF_SORTUP | HDF_SORTDOWN);
        if (i == column)
        {
            item.fmt |= ascending ? HDF_SORTUP : HDF_SORTDOWN;
        }
        Header_SetItem(header, i, &item);
    }
}

void ShowHeaderStyle(wxListCtrl& list, bool buttons)
{
    HWND header = ListView_GetHeader(static_cast<HWND>(list.GetHWND()));
    const LONG_PTR style = GetWindowLongPtr(header, GWL_STYLE);
    const LONG_PTR wanted = buttons ? style | HDS_BUTTONS : style & ~LONG_PTR{HDS_BUTTONS};
    if (wanted != style)
    {
        SetWindowLongPtr(header, GWL_STYLE, wanted);
    }
}

} // namespace velmo
