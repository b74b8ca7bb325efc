#include "ui/WxPrompts.h"

#include "ui/WxText.h"

#include <wx/app.h>
#include <wx/msgdlg.h>

namespace velmo
{

void WxPrompts::Notify(PromptIcon icon, const std::string& text, const std::string& title)
{
    const long style = wxOK | (icon == PromptIcon::Stop ? wxICON_STOP : wxICON_INFORMATION);
    wxMessageBox(ToWx(text), ToWx(title), style, wxTheApp->GetTopWindow());
}

} // namespace velmo
