#include "app/NewsPage.h"

#include "catalogue/VendorPaths.h"
#include "manager/UpdateManager.h"
#include "news/Headlines.h"
#include "text/WebAddress.h"
#include "ui/BrowserPane.h"
#include "ui/CHorizontalSplitter.h"
#include "ui/LinkGrid.h"
#include "ui/Twips.h"
#include "ui/WxText.h"

#include <wx/sizer.h>

#include <vector>

namespace velmo
{
namespace
{

constexpr char kEmptyPage[] = "The news are shown here.";

/// Headlines that are seen at first.
constexpr int kHeadlines = 7;

} // namespace

NewsPage::NewsPage(wxWindow* parent, UpdateManager& manager, const Host& host)
    : wxPanel(parent, wxID_ANY), m_manager(manager)
{
    auto* splitter = new CHorizontalSplitter(this, "fraSplitterNews");
    m_headlines = new LinkGrid(
        splitter, "flxNewsHeadlines", ToWx(kHeadlinesTitle),
        [this, host](const std::string& link) {
            const auto address = ParseWebAddress(link);
            if (address && address->scheme == WebScheme::Ftp)
            {
                // No page: an engine would show its folder or nothing.
                host.openInUserBrowser(link);
                return;
            }
            m_browser->Navigate(link);
            host.bringToFront();
        },
        host.showLink);
    m_browser = new BrowserPane(splitter, "webNews", kEmptyPage, host.openInUserBrowser);
    splitter->Init(m_headlines, m_browser,
                   TwipsOfPixels(*splitter, m_headlines->HeightOf(kHeadlines)));
    auto* sizer = new wxBoxSizer(wxVERTICAL);
    sizer->Add(splitter, wxSizerFlags(1).Expand().Border());
    SetSizer(sizer);
    m_changes = m_manager.Shown().HeadlinesChanged().Add([this] { ShowHeadlines(); });
}

void NewsPage::ShowHeadlines()
{
    std::vector<LinkLine> lines;
    for (const Headline& headline : m_manager.Shown().Headlines())
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
    m_browser->Navigate(m_manager.Lists().Server().Address(vendor_path::kNews));
}

} // namespace velmo
