#include "sample/SampleVersionList.h"

#include "catalogue/ProgramTable.h"
#include "sample/SampleNews.h"

#include <algorithm>
#include <cstddef>

namespace velmo::sample
{
namespace
{

/// At least @a digits digits, filled with zeros.
std::string Digits(std::int32_t number, std::size_t digits)
{
    const std::string text = std::to_string(number);
    return std::string(digits - std::min(digits, text.size()), '0') + text;
}

std::string Line(std::string_view key, std::string_view value)
{
    return std::string(key) + "=" + std::string(value) + "\r\n";
}

} // namespace

const ListedVersion* ListedVersionOf(std::int32_t index)
{
    const auto found =
        std::find_if(kListedVersions.begin(), kListedVersions.end(),
                     [=](const ListedVersion& listed) { return listed.index == index; });
    return found == kListedVersions.end() ? nullptr : found;
}

std::string FullVersionText(const ProgramVersion& version)
{
    const std::string start =
        std::to_string(version.majorNumber) + "." + Digits(version.minorNumber, 2);
    return version.revision == kNoRevision ? start : start + "." + Digits(version.revision, 4);
}

std::string VersionListText(std::string_view server)
{
    std::string text = "; Latest versions of the programs of Velmo Software.\r\n";
    for (const ListedVersion& listed : kListedVersions)
    {
        const ProgramEntry& row = kPrograms[static_cast<std::size_t>(listed.index)];
        text += "\r\n[" + std::string(row.displayName) + "]\r\n";
        text += Line("Major", std::to_string(listed.version.majorNumber));
        text += Line("Minor", std::to_string(listed.version.minorNumber));
        text += Line("Revision", std::to_string(listed.version.revision));
        if (!listed.setup.empty())
        {
            text += Line("Demo URL", std::string(server) + std::string(listed.setup));
        }
    }
    text += "\r\n[News Headlines]\r\n";
    for (const NewsItem& item : kNews)
    {
        text += std::string(item.headline) + "|" + std::string(server) + NewsPath(item) + "\r\n";
    }
    return text;
}

} // namespace velmo::sample
