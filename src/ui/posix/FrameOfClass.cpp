#include "ui/FrameOfClass.h"

#include <wx/panel.h>

namespace velmo
{

void FrameOfClass::CreateOfClass(std::string_view /*windowClass*/, const wxString& caption,
                                 const wxString& name, wxSize size)
{
    Create(nullptr, wxID_ANY, caption, wxDefaultPosition, size, wxDEFAULT_FRAME_STYLE, name);
}

wxPanel* FrameOfClass::NewBody()
{
    return new wxPanel(this, wxID_ANY, wxDefaultPosition, wxDefaultSize, kPanelStyle);
}

} // namespace velmo
