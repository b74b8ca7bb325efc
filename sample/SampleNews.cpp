#include "sample/SampleNews.h"

#include "sample/SamplePage.h"

namespace velmo::sample
{

std::string NewsPath(const NewsItem& item)
{
    return std::string(kNewsFolder) + std::string(item.name) + ".htm";
}

std::string NewsIndexPage()
{
    std::string body = Anchor("latestnews") + Heading("Latest news");
    for (const NewsItem& item : kNews)
    {
        body += "<h2>" + Link(NewsPath(item), item.headline) + "</h2>\n";
        body += "<p class=\"date\">" + Escaped(item.date) + "</p>\n";
        body += Paragraph(item.paragraphs.front());
    }
    return Page("News", body);
}

std::string NewsItemPage(const NewsItem& item)
{
    std::string body =
        Heading(item.headline) + "<p class=\"date\">" + Escaped(item.date) + "</p>\n";
    for (const std::string_view paragraph : item.paragraphs)
    {
        body += Paragraph(paragraph);
    }
    return Page(item.headline,
                body + "<p>" + Link(std::string(kNewsPage) + "#latestnews", "All news") + "</p>\n");
}

} // namespace velmo::sample
