#include "ui/BrowserPane.h"

#include "platform/BrowserEngine.h"
#include "ui/LinkColour.h"
#include "ui/WxText.h"

#include <wx/button.h>
#include <wx/settings.h>
#include <wx/sizer.h>
#include <wx/stattext.h>
#include <wx/webview.h>

#include <string_view>
#include <utility>

namespace velmo
{
namespace
{

constexpr int kMargin = 16;

constexpr char kNoEngine[] = "This page can only be shown in your web browser, because no browser "
                             "engine is installed for use inside this window:";

std::string_view WithoutFragment(std::string_view address)
{
    return address.substr(0, address.find('#'));
}

} // namespace

BrowserPane::BrowserPane(wxWindow* parent, const wxString& name, const wxString& emptyText,
                         std::function<void(const std::string&)> openOutside)
    : wxPanel(parent, wxID_ANY), m_openOutside(std::move(openOutside))
{
    SetName(name);
    SetBackgroundColour(wxSystemSettings::GetColour(wxSYS_COLOUR_WINDOW));
    m_text = new wxStaticText(this, wxID_ANY, emptyText, wxDefaultPosition, wxDefaultSize,
                              wxST_NO_AUTORESIZE);
    m_text->SetForegroundColour(wxSystemSettings::GetColour(wxSYS_COLOUR_WINDOWTEXT));
    auto* sizer = new wxBoxSizer(wxVERTICAL);
    sizer->Add(m_text, wxSizerFlags().Expand().Border(wxALL, FromDIP(kMargin)));
    SetSizer(sizer);
    Bind(wxEVT_PAINT, [this](wxPaintEvent& event) {
        event.Skip();
        CallAfter([this] { ShowWhenSeen(); });
    });
}

void BrowserPane::Navigate(const std::string& address)
{
    m_address = address;
    m_pending = true;
    ShowWhenSeen();
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
        m_engine = wxWebView::New();
        if (m_engine != nullptr && !m_engine->Create(this, wxID_ANY, wxWebViewDefaultURLStr))
        {
            m_engine = nullptr;
        }
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

void BrowserPane::ShowInEngine()
{
    if (m_text->IsShown())
    {
        m_text->Hide();
        GetSizer()->Add(m_engine, wxSizerFlags(1).Expand());
        m_engine->Bind(wxEVT_WEBVIEW_ERROR, [this](const wxWebViewEvent& event) {
            // Not those of a page's parts, nor of the load that this one replaced.
            const std::string failed = FromWx(event.GetURL());
            m_failed = m_failed || (event.GetInt() != wxWEBVIEW_NAV_ERR_USER_CANCELLED &&
                                    WithoutFragment(failed) == WithoutFragment(m_address));
        });
    }
    m_failed = false;
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
