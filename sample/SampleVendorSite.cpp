#include "sample/SampleVendorSite.h"

#include "catalogue/ProgramTable.h"
#include "sample/SampleImage.h"
#include "sample/SampleNews.h"
#include "sample/SamplePage.h"
#include "sample/SampleProgramTexts.h"
#include "sample/SampleVersionList.h"

#include <utility>
#include <vector>

namespace velmo::sample
{
namespace
{

constexpr std::string_view kListType = "text/plain; charset=windows-1252";
constexpr std::string_view kTextType = "text/plain; charset=utf-8";
constexpr std::string_view kPageType = "text/html; charset=utf-8";
constexpr std::string_view kProgramType = "application/octet-stream";

std::string LatestVersion(std::int32_t index)
{
    const ListedVersion* listed = ListedVersionOf(index);
    return listed != nullptr ? FullVersionText(listed->version) : std::string();
}

/// The part of an information page that is one program's own.
std::string InformationOf(const ProgramEntry& row)
{
    const ProgramText& text = TextOfProgram(row.index);
    const std::string latest = LatestVersion(row.index);
    std::string html = Heading(row.displayName) + Paragraph(text.summary) +
                       "<h2>What it does</h2>\n" + Bullets(text.features);
    html += latest.empty() ? Paragraph("The latest version is not published here.")
                           : Paragraph("Latest version: " + latest);
    html += "<p>" + Link(row.demoSetup, "Download the demo");
    if (!row.updatePage.empty())
    {
        html += " &middot; " + Link(std::string(row.updatePage) + "#updatetext", "Latest update");
    }
    return html + "</p>\n";
}

std::string UpdatePageOf(const ProgramEntry& row)
{
    const std::string name(row.displayName);
    const ProgramText& text = TextOfProgram(row.index);
    const std::string latest = LatestVersion(row.index);
    return Page(
        "Update of " + name,
        Heading("Update of " + name) + Paragraph(text.summary) + Anchor("updatetext") + "<h2>" +
            Escaped(latest.empty() ? "What is new" : "New in " + latest) + "</h2>\n" +
            Bullets(text.changes) + "<h2>How to install</h2>\n" +
            Paragraph("Close " + name +
                      ", download the setup and start it. Your projects and settings stay as "
                      "they are.") +
            "<p>" + Link(row.informationPage, "About " + name) + "</p>\n");
}

std::string IndexPage()
{
    std::string body = Heading("Programs for building engineers") + "<p>" +
                       Link(std::string(kNewsPage) + "#latestnews", "Latest news") + "</p>\n<ul>\n";
    for (const ProgramEntry& row : kPrograms)
    {
        if (!row.informationPage.empty())
        {
            body += "<li>" + Link(row.informationPage, row.displayName) + ": " +
                    Escaped(TextOfProgram(row.index).summary) + "</li>\n";
        }
    }
    return Page("Programs", body + "</ul>\n");
}

std::string DemoSetup(const ProgramEntry& row, std::string_view path)
{
    const ListedVersion* listed = ListedVersionOf(row.index);
    ProgramVersion version = listed != nullptr ? listed->version : ProgramVersion{1, 0, 0};
    version.revision = version.revision == kNoRevision ? 0 : version.revision;
    const std::string description =
        "Sample setup of " + std::string(row.displayName) + "; installs nothing";
    return WriteSampleImage(
        {description, row.displayName, path.substr(path.rfind('/') + 1), version});
}

} // namespace

SampleVendorSite::SampleVendorSite(std::string server, std::span<const EquipmentSection> equipment)
    : m_server(std::move(server))
{
    AddPage("/", IndexPage());
    AddLists(equipment);
    AddProgramPages();
    AddDemoSetups();
    AddNews();
}

const SiteFile* SampleVendorSite::Find(std::string_view path) const
{
    const auto found = m_files.find(path);
    return found == m_files.end() ? nullptr : &found->second;
}

void SampleVendorSite::AddPage(std::string_view path, std::string html)
{
    m_files[std::string(path)] = {std::string(kPageType), std::move(html)};
}

void SampleVendorSite::AddLists(std::span<const EquipmentSection> equipment)
{
    m_files["/pub/demo/version.ini"] = {std::string(kListType), VersionListText(m_server)};
    m_files["/pub/demo/manufver.ini"] = {std::string(kListType),
                                         ManufacturerListText(equipment, m_server)};
}

void SampleVendorSite::AddProgramPages()
{
    std::map<std::string_view, std::string> information; // Programs of one family share a page.
    for (const ProgramEntry& row : kPrograms)
    {
        if (!row.informationPage.empty())
        {
            information[row.informationPage] += InformationOf(row);
        }
        if (!row.updatePage.empty())
        {
            AddPage(row.updatePage, UpdatePageOf(row));
        }
    }
    for (const auto& [path, body] : information)
    {
        AddPage(path, Page("Program information", body));
    }
    m_files["/web/errors/noupdatepage.txt"] = {
        std::string(kTextType),
        "There is no update page for this program.\r\n\r\nIts information page tells the latest "
        "version; the update itself comes with the demo setup.\r\n"};
}

void SampleVendorSite::AddDemoSetups()
{
    for (const ProgramEntry& row : kPrograms)
    {
        const ListedVersion* listed = ListedVersionOf(row.index);
        const std::string_view published = listed != nullptr ? listed->setup : std::string_view();
        for (const std::string_view path : {row.demoSetup, published})
        {
            if (!path.empty())
            {
                m_files[std::string(path)] = {std::string(kProgramType), DemoSetup(row, path)};
            }
        }
    }
}

void SampleVendorSite::AddNews()
{
    AddPage(kNewsPage, NewsIndexPage());
    for (const NewsItem& item : kNews)
    {
        AddPage(NewsPath(item), NewsItemPage(item));
    }
}

} // namespace velmo::sample
