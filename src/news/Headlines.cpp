#include "news/Headlines.h"

#include "platform/WebAddress.h"
#include "settings/CINIFileHandler.h"
#include "settings/DiagnosticLog.h"
#include "settings/TextCase.h"

namespace velmo
{
namespace
{

constexpr std::string_view kSection = "News Headlines";

/// What may be opened in the news pane; a pane loads pages, no files of other kinds.
std::string UsableLink(std::string_view link, DiagnosticLog& log)
{
    const auto address = platform::ParseWebAddress(link);
    if (address && address->scheme != platform::WebScheme::Ftp)
    {
        return address->text;
    }
    if (!link.empty())
    {
        log.Write("The link of a headline is no http or https address: " + std::string(link));
    }
    return {};
}

Headline FromLine(std::string_view line, DiagnosticLog& log)
{
    const std::size_t bar = line.find('|');
    Headline headline{std::string(line.substr(0, bar)), {}};
    if (bar != std::string_view::npos)
    {
        const std::string_view rest = line.substr(bar + 1);
        headline.link = UsableLink(Trimmed(rest.substr(0, rest.find('|'))), log);
    }
    return headline;
}

} // namespace

std::vector<Headline> ReadHeadlines(const std::string& versionListPath, DiagnosticLog& log)
{
    CINIFileHandler list(log);
    list.AppProfileFileName(versionListPath);
    const std::string block = list.MyGetAppProfileSection(kSection);

    std::vector<Headline> headlines;
    std::string_view rest = block;
    for (std::size_t line = 0; line < kMostHeadlines && !rest.empty(); ++line)
    {
        const std::size_t end = rest.find('\0');
        if (end != 0)
        {
            headlines.push_back(FromLine(rest.substr(0, end), log));
        }
        rest.remove_prefix(end == std::string_view::npos ? rest.size() : end + 1);
    }
    return headlines;
}

} // namespace velmo
