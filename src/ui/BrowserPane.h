#pragma once

#include <wx/panel.h>

#include <functional>
#include <string>

class wxButton;
class wxStaticText;
class wxWebView;
class wxWebViewEvent;

namespace velmo
{

/**
    A pane that shows a web page, with a bar to go back, to load it again and to open it in the user's
    own browser. The engine is loaded when the pane is first seen with a page to show. Only http and
    https pages of the shown page's server stay inside: other addresses that a person follows, and new
    windows, go to the user's browser. Where no engine can be had the pane shows the address as a link
    for that browser, and one sentence why.
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
    [[nodiscard]] wxSizer* NewBar();
    wxButton* AddToBar(wxSizer& bar, const wxString& name, const wxString& caption,
                       std::function<void()> action);
    void CreateEngine();
    void OnNavigating(wxWebViewEvent& event);
    [[nodiscard]] bool StaysInside(const std::string& address) const;
    [[nodiscard]] std::string ShownAddress() const;
    void GoBack();
    void Reload();
    void ShowBarState();
    void ShowWhenSeen();
    void ShowInEngine();
    void ShowAsLink();

    std::function<void(const std::string&)> m_openOutside;
    std::string m_address;
    bool m_pending = false; ///< The address is still to be loaded.
    bool m_failed = false;  ///< The engine could not load it.
    bool m_loading = false; ///< The engine loads a page, and the parts that it is made of.
    int m_followed = 0;     ///< Links that were followed since the address was given.
    wxStaticText* m_text = nullptr;
    wxButton* m_link = nullptr;
    wxButton* m_back = nullptr;
    wxButton* m_reload = nullptr;
    wxButton* m_open = nullptr;
    wxWebView* m_engine = nullptr;
    bool m_engineTried = false;
};

} // namespace velmo
