#include "app/ProgramInformation.h"

#include "app/BuildInformation.h"
#include "catalogue/CFileVersionInfo.h"
#include "catalogue/PeVersionResource.h"
#include "catalogue/VersionInfoBlock.h"
#include "platform/AnsiText.h"
#include "platform/DesktopFolders.h"
#include "platform/FileReader.h"

#include <algorithm>
#include <charconv>

namespace velmo
{
namespace
{

/// The resource's field of comments, which CFileVersionInfo does not give.
std::string Comments(const std::string& path)
{
    const auto file = platform::FileReader::Open(path);
    auto bytes = file ? ReadVersionResource(file.Value()) : std::nullopt;
    const auto block = bytes ? VersionInfoBlock::FromBytes(std::move(*bytes)) : std::nullopt;
    const auto text =
        block ? block->Value({"StringFileInfo", "040904B0", "Comments"}) : std::nullopt;
    return text ? platform::FromAnsi(text->substr(0, text->find('\0'))) : std::string();
}

std::int32_t TakeNumber(std::string_view& version)
{
    const std::size_t end = std::min(version.find('.'), version.size());
    std::int32_t number = 0;
    std::from_chars(version.data(), version.data() + end, number);
    version.remove_prefix(std::min(end + 1, version.size()));
    return number;
}

} // namespace

ProgramInformation OwnInformation()
{
    const std::string path = platform::ProgramPath();
    CFileVersionInfo info;
    info.FullPathName(path);
    if (info.Available())
    {
        return {info.ProductName(), info.FileVersion(), Comments(path), info.LegalCopyright()};
    }
    return {build::kTitle, build::kVersion, build::kDescription, build::kCopyright};
}

ProgramVersion VersionNumbers(std::string_view version)
{
    ProgramVersion numbers;
    numbers.majorNumber = TakeNumber(version);
    numbers.minorNumber = TakeNumber(version);
    numbers.revision = TakeNumber(version);
    return numbers;
}

std::string VersionLabel(std::string_view version)
{
    return "Version " + InstalledVersionText(VersionNumbers(version));
}

} // namespace velmo
