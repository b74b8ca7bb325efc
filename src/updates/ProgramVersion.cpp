#include "updates/ProgramVersion.h"

#include <array>
#include <cinttypes>
#include <cstdio>

namespace velmo
{
namespace
{

constexpr std::int32_t kNoRevision = -1;

std::string MajorAndMinor(const ProgramVersion& version)
{
    std::array<char, 32> text{};
    const char* form =
        version.minorNumber < 0 ? "%" PRId32 ".-%02" PRId64 : "%" PRId32 ".%02" PRId64;
    const std::int64_t minor = version.minorNumber;
    std::snprintf(text.data(), text.size(), form, version.majorNumber, minor < 0 ? -minor : minor);
    return text.data();
}

} // namespace

bool IsUpToDate(const ProgramVersion& installed, const ProgramVersion& latest)
{
    if (installed.majorNumber != latest.majorNumber)
    {
        return false;
    }
    if (installed.minorNumber != latest.minorNumber)
    {
        return installed.minorNumber > latest.minorNumber;
    }
    return installed.revision >= latest.revision;
}

std::string InstalledVersionText(const ProgramVersion& version)
{
    return MajorAndMinor(version) + "." + std::to_string(version.revision);
}

std::string LatestVersionText(const ProgramVersion& version)
{
    if (version.majorNumber == 0)
    {
        return "?";
    }
    return version.revision == kNoRevision ? MajorAndMinor(version) : InstalledVersionText(version);
}

} // namespace velmo
