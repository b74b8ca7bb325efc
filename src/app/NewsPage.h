#pragma once

#include "controls/Observers.h"

#include <wx/panel.h>

#include <functional>
#include <string>

namespace velmo
{

class BrowserPane;
class CHorizontalSplitter;
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

    void FocusHeadlines();

    /// Moves the bar between headlines and page down by so many lines, up by a negative number.
    void MoveBar(int lines);

  private:
    void ShowHeadlines();
    void ShowEmptyText();

    UpdateManager& m_manager;
    CHorizontalSplitter* m_splitter = nullptr;
    LinkGrid* m_headlines = nullptr;
    BrowserPane* m_browser = nullptr;
    Observers::Subscription m_changes;
    Observers::Subscription m_report;
};

} // namespace velmo
