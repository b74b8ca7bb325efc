#include "ui/BrowserPane.h"

#include "platform/BrowserEngine.h"
#include "text/TextCase.h"
#include "text/WebAddress.h"
#include "ui/FrameOfClass.h"
#include "ui/ReadableColour.h"
#include "ui/WxText.h"

#include <wx/button.h>
#include <wx/log.h>
#include <wx/settings.h>
#include <wx/sizer.h>
#include <wx/stattext.h>
#include <wx/webview.h>

#include <memory>
#include <string_view>
#include <utility>

namespace velmo
{
namespace
{

constexpr int kMargin = 16;
constexpr int kBarGap = 6;

constexpr char kNoEngine[] = "This page can only be shown in your web browser, because no browser "
                             "engine is installed for use inside this window:";

std::string_view WithoutFragment(std::string_view address)
{
    return address.substr(0, address.find('#'));
}

/// Host and port.
std::string_view ServerOf(std::string_view address)
{
    const std::size_t slashes = address.find("//");
    address.remove_prefix(slashes == std::string_view::npos ? address.size() : slashes + 2);
    return address.substr(0, address.find_first_of("/?#"));
}

} // namespace

BrowserPane::BrowserPane(wxWindow* parent, const wxString& name, const wxString& emptyText,
                         std::function<void(const std::string&)> openOutside)
    : wxPanel(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, kPanelStyle),
      m_openOutside(std::move(openOutside))
{
    SetName(name);
    SetBackgroundColour(wxSystemSettings::GetColour(wxSYS_COLOUR_WINDOW));
    m_text = new wxStaticText(this, wxID_ANY, emptyText, wxDefaultPosition, wxDefaultSize,
                              wxST_NO_AUTORESIZE);
    m_text->SetForegroundColour(wxSystemSettings::GetColour(wxSYS_COLOUR_WINDOWTEXT));
    auto* sizer = new wxBoxSizer(wxVERTICAL);
    sizer->Add(NewBar(), wxSizerFlags().Expand());
    sizer->Add(m_text, wxSizerFlags().Expand().Border(wxALL, FromDIP(kMargin)));
    SetSizer(sizer);
    Bind(wxEVT_PAINT, [this](wxPaintEvent& event) {
        event.Skip();
        CallAfter([this] { ShowWhenSeen(); });
    });
    ShowBarState();
}

wxSizer* BrowserPane::NewBar()
{
    auto* bar = new wxBoxSizer(wxHORIZONTAL);
    m_back = AddToBar(*bar, "cmdBack", "&Back", [this] { GoBack(); });
    m_reload = AddToBar(*bar, "cmdReload", "R&eload", [this] { Reload(); });
    m_open = AddToBar(*bar, "cmdOpenInBrowser", "&Open in Browser",
                      [this] { m_openOutside(ShownAddress()); });
    return bar;
}

wxButton* BrowserPane::AddToBar(wxSizer& bar, const wxString& name, const wxString& caption,
                                std::function<void()> action)
{
    auto* button = new wxButton(this, wxID_ANY, caption, wxDefaultPosition, wxDefaultSize,
                                wxBORDER_NONE | wxBU_EXACTFIT);
    button->SetName(name);
    button->Bind(wxEVT_BUTTON, [action = std::move(action)](wxCommandEvent&) { action(); });
    bar.Add(button, wxSizerFlags().Border(wxLEFT | wxRIGHT, FromDIP(kBarGap)));
    return button;
}

void BrowserPane::Navigate(const std::string& address)
{
    m_address = address;
    m_pending = true;
    ShowWhenSeen();
    ShowBarState();
}

void BrowserPane::Retry()
{
    if (m_failed)
    {
        Navigate(m_address);
    }
}

void BrowserPane::ShowWhenSeen()
{
    if (!m_pending || !IsShownOnScreen())
    {
        return;
    }
    m_pending = false;
    if (!std::exchange(m_engineTried, true) && platform::HasBrowserEngine())
    {
        CreateEngine();
    }
    if (m_engine != nullptr)
    {
        ShowInEngine();
    }
    else
    {
        ShowAsLink();
    }
    Layout();
}

void BrowserPane::CreateEngine()
{
    std::unique_ptr<wxWebView> engine(wxWebView::New());
    if (!engine || !engine->Create(this, wxID_ANY, wxWebViewDefaultURLStr))
    {
        wxLogWarning("The browser engine cannot be started: pages are shown as links");
        return;
    }
    m_engine = engine.release(); // The pane's from here on.
    m_text->Hide();
    GetSizer()->Add(m_engine, wxSizerFlags(1).Expand());
    m_engine->Bind(wxEVT_WEBVIEW_NAVIGATING, &BrowserPane::OnNavigating, this);
    m_engine->Bind(wxEVT_WEBVIEW_NEWWINDOW,
                   [this](const wxWebViewEvent& event) { m_openOutside(FromWx(event.GetURL())); });
    m_engine->Bind(wxEVT_WEBVIEW_LOADED, [this](const wxWebViewEvent& event) {
        // The blank page that an engine begins with may come while the first page is loaded.
        m_loading = m_loading && event.GetURL() == wxWebViewDefaultURLStr;
        ShowBarState();
    });
    m_engine->Bind(wxEVT_WEBVIEW_ERROR, [this](const wxWebViewEvent& event) {
        // Not those of a page's parts, nor of the load that this one replaced.
        const std::string failed = FromWx(event.GetURL());
        m_failed = m_failed || (event.GetInt() != wxWEBVIEW_NAV_ERR_USER_CANCELLED &&
                                WithoutFragment(failed) == WithoutFragment(m_address));
    });
}

void BrowserPane::OnNavigating(wxWebViewEvent& event)
{
    const std::string address = FromWx(event.GetURL());
    if (!StaysInside(address))
    {
        event.Veto();
        CallAfter([this, address] { m_openOutside(address); });
        return;
    }
    if (address != wxWebViewDefaultURLStr)
    {
        m_followed += m_loading ? 0 : 1;
        m_loading = true;
    }
}

bool BrowserPane::StaysInside(const std::string& address) const
{
    const auto scheme = WebSchemeOf(address);
    const bool isPage = scheme && *scheme != WebScheme::Ftp;
    // A server may send the page, or a part of it, from elsewhere: only what a person follows leaves.
    return address == wxWebViewDefaultURLStr ||
           (isPage && (m_loading || EqualInAnyCase(ServerOf(address), ServerOf(ShownAddress()))));
}

std::string BrowserPane::ShownAddress() const
{
    return m_engine != nullptr && m_followed > 0 ? FromWx(m_engine->GetCurrentURL()) : m_address;
}

void BrowserPane::GoBack()
{
    --m_followed;
    m_loading = true;
    m_engine->GoBack();
}

void BrowserPane::Reload()
{
    if (m_failed || m_followed == 0)
    {
        Navigate(m_address);
        return;
    }
    m_loading = true;
    m_engine->Reload();
}

void BrowserPane::ShowBarState()
{
    const bool hasEngine = m_engine != nullptr;
    m_back->Enable(hasEngine && m_followed > 0 && m_engine->CanGoBack());
    m_reload->Enable(hasEngine);
    m_open->Enable(!m_address.empty());
}

void BrowserPane::ShowInEngine()
{
    m_failed = false;
    m_loading = true;
    m_followed = 0;
    m_engine->LoadURL(ToWx(m_address));
}

void BrowserPane::ShowAsLink()
{
    if (m_link == nullptr)
    {
        m_text->SetLabel(kNoEngine);
        m_link = new wxButton(this, wxID_ANY, wxEmptyString, wxDefaultPosition, wxDefaultSize,
                              wxBORDER_NONE | wxBU_LEFT);
        m_link->SetBackgroundColour(GetBackgroundColour());
        m_link->SetForegroundColour(LinkColour(GetBackgroundColour()));
        m_link->SetFont(GetFont().Underlined());
        m_link->SetCursor(wxCursor(wxCURSOR_HAND));
        m_link->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { m_openOutside(m_address); });
        GetSizer()->Add(m_link, wxSizerFlags().Border(wxLEFT | wxRIGHT, FromDIP(kMargin)));
    }
    m_link->SetLabel(wxControl::EscapeMnemonics(ToWx(m_address)));
    m_text->Wrap(GetClientSize().GetWidth() - 2 * FromDIP(kMargin));
}

} // namespace velmo
