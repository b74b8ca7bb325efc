#pragma once

#include <wx/panel.h>

#include <functional>
#include <string>

class wxButton;
class wxStaticText;
class wxWebView;

namespace velmo
{

/**
    A pane that shows a web page. The browser engine is loaded when the pane is first seen with a page
    to show. Where no engine can be had the pane shows the address as a link for the user's own
    browser, and one sentence why.
 */
class BrowserPane final : public wxPanel
{
  public:
    /// @a emptyText stands in the pane until there is a page to show; @a openOutside opens an address
    /// in the user's browser.
    BrowserPane(wxWindow* parent, const wxString& name, const wxString& emptyText,
                std::function<void(const std::string&)> openOutside);

    /// Loads a page as soon as the pane is seen, also the one that is shown.
    void Navigate(const std::string& address);

    /// Loads the page again if it could not be loaded, as before the computer had a connection.
    void Retry();

    /// The page that is shown or will be; empty before the first.
    [[nodiscard]] const std::string& Address() const { return m_address; }

  private:
    void ShowWhenSeen();
    void ShowInEngine();
    void ShowAsLink();

    std::function<void(const std::string&)> m_openOutside;
    std::string m_address;
    bool m_pending = false; ///< The address is still to be loaded.
    bool m_failed = false;  ///< The engine could not load it.
    wxStaticText* m_text = nullptr;
    wxButton* m_link = nullptr;
    wxWebView* m_engine = nullptr;
    bool m_engineTried = false;
};

} // namespace velmo
