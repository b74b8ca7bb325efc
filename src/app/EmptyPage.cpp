#include "app/EmptyPage.h"

#include <wx/panel.h>
#include <wx/sizer.h>
#include <wx/stattext.h>

namespace velmo
{

wxPanel* MakeEmptyPage(wxWindow* parent, const wxString& text)
{
    auto* page = new wxPanel(parent, wxID_ANY);
    auto* line = new wxStaticText(page, wxID_ANY, text, wxDefaultPosition, wxDefaultSize,
                                  wxALIGN_CENTRE_HORIZONTAL);
    auto* sizer = new wxBoxSizer(wxVERTICAL);
    sizer->AddStretchSpacer();
    sizer->Add(line, wxSizerFlags().Expand().Border(wxALL, page->FromDIP(24)));
    sizer->AddStretchSpacer();
    page->SetSizer(sizer);
    return page;
}

} // namespace velmo
