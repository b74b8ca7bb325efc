#include "app/NewsPage.h"

#include "manager/UpdateManager.h"
#include "news/Headlines.h"
#include "ui/BrowserPane.h"
#include "ui/LinkGrid.h"
#include "ui/WxText.h"

#include <wx/sizer.h>
#include <wx/splitter.h>

#include <utility>
#include <vector>

namespace velmo
{
namespace
{

constexpr char kEmptyPage[] = "The news are shown here.";
constexpr std::string_view kNewsPage = "/web/newsroom/index.htm#latestnews";

/// First height of the headlines, and the least of either part, in device-independent pixels.
constexpr int kHeadlinesHeight = 190;
constexpr int kLeastHeight = 80;

} // namespace

NewsPage::NewsPage(wxWindow* parent, UpdateManager& manager, Host host)
    : wxPanel(parent, wxID_ANY), m_manager(manager)
{
    auto* splitter = new wxSplitterWindow(this, wxID_ANY, wxDefaultPosition, wxDefaultSize,
                                          wxSP_LIVE_UPDATE | wxSP_3DSASH);
    m_headlines = new LinkGrid(
        splitter, "flxNewsHeadlines", ToWx(kHeadlinesTitle),
        [this, front = std::move(host.bringToFront)](const std::string& link) {
            m_browser->Navigate(link);
            front();
        },
        std::move(host.showLink));
    m_browser = new BrowserPane(splitter, "webNews", kEmptyPage, std::move(host.openInUserBrowser));
    splitter->SetMinimumPaneSize(FromDIP(kLeastHeight));
    splitter->SplitHorizontally(m_headlines, m_browser, FromDIP(kHeadlinesHeight));
    auto* sizer = new wxBoxSizer(wxVERTICAL);
    sizer->Add(splitter, wxSizerFlags(1).Expand().Border());
    SetSizer(sizer);
}

void NewsPage::ShowHeadlines()
{
    std::vector<LinkLine> lines;
    for (const Headline& headline : m_manager.Headlines())
    {
        lines.push_back({headline.text, headline.link});
    }
    m_headlines->SetLines(lines);
    // Headlines come with a connection: the page may load now.
    m_browser->Retry();
}

void NewsPage::OpenNewsPage()
{
    m_browser->Navigate(m_manager.Lists().Server().Address(kNewsPage));
}

} // namespace velmo
