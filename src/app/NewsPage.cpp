#include "app/NewsPage.h"

#include "app/EmptyText.h"
#include "catalogue/VendorPaths.h"
#include "manager/UpdateManager.h"
#include "news/Headlines.h"
#include "text/WebAddress.h"
#include "ui/BrowserPane.h"
#include "ui/CHorizontalSplitter.h"
#include "ui/FrameOfClass.h"
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
    : wxPanel(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, kPanelStyle), m_manager(manager)
{
    m_splitter = new CHorizontalSplitter(this, "fraSplitterNews");
    m_headlines = new LinkGrid(
        m_splitter, "flxNewsHeadlines", ToWx(kHeadlinesTitle),
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
    m_browser = new BrowserPane(m_splitter, "webNews", kEmptyPage, host.openInUserBrowser);
    m_splitter->Init(m_headlines, m_browser,
                     TwipsOfPixels(*m_splitter, m_headlines->HeightOf(kHeadlines)));
    auto* sizer = new wxBoxSizer(wxVERTICAL);
    sizer->Add(m_splitter, wxSizerFlags(1).Expand().Border());
    SetSizer(sizer);
    m_report = m_manager.Lists().ReportChanged().Add([this] { ShowEmptyText(); });
    ShowEmptyText();
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

void NewsPage::ShowEmptyText()
{
    m_headlines->SetEmptyText(ToWx(EmptyText(m_manager.Lists().Report(), "headlines")));
}

void NewsPage::MoveBar(int lines)
{
    m_splitter->MoveByLines(lines);
}

void NewsPage::FocusHeadlines()
{
    m_headlines->SetFocus();
}

void NewsPage::OpenNewsPage()
{
    m_browser->Navigate(m_manager.Lists().Server().Address(vendor_path::kNews));
}

} // namespace velmo
