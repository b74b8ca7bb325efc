#include "news/Headlines.h"

#include "settings/DiagnosticLog.h"
#include "settings/SettingsSnapshot.h"
#include "text/RelativeAddress.h"
#include "text/TextCase.h"

namespace velmo
{
namespace
{

Headline FromLine(std::string_view line, std::string_view newsPage, DiagnosticLog& log)
{
    const std::size_t bar = line.find('|');
    Headline headline{std::string(line.substr(0, bar)), {}};
    std::string_view link = bar == std::string_view::npos ? "" : line.substr(bar + 1);
    link = Trimmed(link.substr(0, link.find('|')));
    if (const auto address = ResolveReference(newsPage, link))
    {
        headline.link = address->text;
    }
    else if (!link.empty())
    {
        log.Write("The link of a headline is no web address: " + std::string(link));
    }
    return headline;
}

} // namespace

std::vector<Headline> ReadHeadlines(const SettingsSnapshot& versionList, std::string_view newsPage,
                                    DiagnosticLog& log)
{
    const std::string block = versionList.Section(kHeadlinesSection);
    std::vector<Headline> headlines;
    std::string_view rest = block;
    for (std::size_t line = 0; line < kMostHeadlines && !rest.empty(); ++line)
    {
        const std::size_t end = rest.find('\0');
        if (end != 0)
        {
            headlines.push_back(FromLine(rest.substr(0, end), newsPage, log));
        }
        rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
    }
    return headlines;
}

} // namespace velmo
