#include "ui/FrameOfClass.h"

#include "ui/WxText.h"

#include <wx/app.h>
#include <wx/msw/private.h>
#include <wx/panel.h>
#include <wx/settings.h>

namespace velmo
{
namespace
{

/// Whether the system can look for a letter's control from the focus on. From a panel, or from within
/// something hidden or disabled, it would search for ever.
bool IsOnAControl(HWND focus, HWND window)
{
    if (focus == nullptr || (::GetWindowLongW(focus, GWL_EXSTYLE) & WS_EX_CONTROLPARENT) != 0)
    {
        return false;
    }
    HWND at = focus;
    while (at != nullptr && at != window && ::IsWindowVisible(at) && ::IsWindowEnabled(at))
    {
        at = ::GetParent(at);
    }
    return at == window && focus != window;
}

/// The toolkit looks for an underlined letter in the innermost panel around the focus only; here it
/// means any control that is seen.
class MnemonicPanel final : public wxPanel
{
  public:
    using wxPanel::wxPanel;

    bool MSWTranslateMessage(WXMSG* message) override
    {
        return wxPanel::MSWTranslateMessage(message) ||
               (message->message == WM_SYSCHAR && IsOnAControl(message->hwnd, GetHwnd()) &&
                ::IsDialogMessageW(GetHwnd(), message) != FALSE);
    }
};

} // namespace

void FrameOfClass::CreateOfClass(std::string_view windowClass, const wxString& caption,
                                 const wxString& name, wxSize size)
{
    // The toolkit has no way to choose a frame's window class: these are the steps of its own Create()
    // with another class.
    wxTopLevelWindows.Append(this);
    CreateBase(nullptr, wxID_ANY, wxDefaultPosition, size, wxDEFAULT_FRAME_STYLE, name);
    WXDWORD extendedStyle = 0;
    const WXDWORD style = MSWGetCreateWindowFlags(&extendedStyle);
    const wxString wanted = ToWx(windowClass);
    const wxChar* registered =
        wxApp::GetRegisteredClassName(wanted.t_str(), COLOR_BTNFACE, 0, wxApp::RegClass_OnlyNR);
    MSWCreate(registered, caption.t_str(), wxDefaultPosition, size, style, extendedStyle);
    MSWUpdateUIState(UIS_INITIALIZE);
    SetOwnBackgroundColour(wxSystemSettings::GetColour(wxSYS_COLOUR_BTNFACE));
}

wxPanel* FrameOfClass::NewBody()
{
    return new MnemonicPanel(this, wxID_ANY, wxDefaultPosition, wxDefaultSize, kPanelStyle);
}

} // namespace velmo
