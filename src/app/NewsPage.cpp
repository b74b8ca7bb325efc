#include "app/NewsPage.h"

#include "manager/UpdateManager.h"
#include "news/Headlines.h"
#include "ui/BrowserPane.h"
#include "ui/CHorizontalSplitter.h"
#include "ui/LinkGrid.h"
#include "ui/Twips.h"
#include "ui/WxText.h"

#include <wx/sizer.h>

#include <utility>
#include <vector>

namespace velmo
{
namespace
{

constexpr char kEmptyPage[] = "The news are shown here.";
constexpr std::string_view kNewsPage = "/web/newsroom/index.htm#latestnews";

/// Headlines that are seen at first.
constexpr int kHeadlines = 7;

} // namespace

NewsPage::NewsPage(wxWindow* parent, UpdateManager& manager, Host host)
    : wxPanel(parent, wxID_ANY), m_manager(manager)
{
    auto* splitter = new CHorizontalSplitter(this, "fraSplitterNews");
    m_headlines = new LinkGrid(
        splitter, "flxNewsHeadlines", ToWx(kHeadlinesTitle),
        [this, front = std::move(host.bringToFront)](const std::string& link) {
            m_browser->Navigate(link);
            front();
        },
        std::move(host.showLink));
    m_browser = new BrowserPane(splitter, "webNews", kEmptyPage, std::move(host.openInUserBrowser));
    splitter->Init(m_headlines, m_browser,
                   TwipsOfPixels(*splitter, m_headlines->HeightOf(kHeadlines)));
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
    if (!lines.empty())
    {
        // They came with a connection: the page may load now.
        m_browser->Retry();
    }
}

void NewsPage::OpenNewsPage()
{
    m_browser->Navigate(m_manager.Lists().Server().Address(kNewsPage));
}

} // namespace velmo
