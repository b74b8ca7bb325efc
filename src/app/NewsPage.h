#pragma once

#include "controls/Observers.h"

#include <wx/panel.h>

#include <functional>
#include <string>

namespace velmo
{

class BrowserPane;
class LinkGrid;
class UpdateManager;

/// The third tab: the vendor's latest headlines above the page of the one that was clicked, or the
/// vendor's news page before that.
class NewsPage final : public wxPanel
{
  public:
    /// What the page asks of the window that holds it.
    struct Host
    {
        std::function<void()> bringToFront;                        ///< Select this tab.
        std::function<void(const std::string&)> showLink;          ///< In the status bar.
        std::function<void(const std::string&)> openInUserBrowser; ///< Where no engine is.
    };

    /// @a manager must outlive the page.
    NewsPage(wxWindow* parent, UpdateManager& manager, const Host& host);

    /// Opens the vendor's news page.
    void OpenNewsPage();

  private:
    void ShowHeadlines();

    UpdateManager& m_manager;
    LinkGrid* m_headlines = nullptr;
    BrowserPane* m_browser = nullptr;
    Observers::Subscription m_changes;
};

} // namespace velmo
