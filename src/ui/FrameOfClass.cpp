#include "ui/FrameOfClass.h"

#include "ui/ProgramIcon.h"
#include "ui/WxText.h"

#include <wx/panel.h>
#include <wx/sizer.h>

namespace velmo
{

FrameOfClass::FrameOfClass(std::string_view windowClass, std::string_view caption,
                           const wxString& name, wxSize size, wxSize characters)
{
    CreateOfClass(windowClass, ToWx(caption), name, FromDIP(size));
    ShowProgramIcon(*this);
    wxSize wanted = FromDIP(size);
    wanted.IncTo(wxSize(characters.x * GetCharWidth(), characters.y * GetCharHeight()));
    SetSize(wanted);
    m_body = NewBody();
    auto* sizer = new wxBoxSizer(wxVERTICAL);
    sizer->Add(m_body, wxSizerFlags(1).Expand());
    SetSizer(sizer);
}

} // namespace velmo
