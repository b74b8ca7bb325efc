#include "ui/WxMousePointer.h"

#include <wx/cursor.h>
#include <wx/utils.h>

namespace velmo
{

void WxMousePointer::Show(PointerShape shape)
{
    while (wxIsBusy())
    {
        wxEndBusyCursor();
    }
    if (shape != PointerShape::Normal)
    {
        const wxCursor cursor(shape == PointerShape::Hourglass ? wxCURSOR_WAIT
                                                               : wxCURSOR_ARROWWAIT);
        wxBeginBusyCursor(&cursor);
    }
}

} // namespace velmo
