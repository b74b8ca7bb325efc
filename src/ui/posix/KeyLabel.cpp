#include "ui/KeyLabel.h"

#include <wx/stattext.h>

namespace velmo
{

void LeaveKeyToMenu(wxStaticText& label)
{
    wxString text = label.GetLabel();
    const std::size_t mark = text.find('&');
    if (mark != wxString::npos && mark + 1 < text.length())
    {
        label.SetLabelMarkup(text.Left(mark) + "<u>" + text.Mid(mark + 1, 1) + "</u>" +
                             text.Mid(mark + 2));
    }
}

} // namespace velmo
