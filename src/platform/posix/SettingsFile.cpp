#include "platform/posix/SettingsFile.h"

#include "platform/MFile.h"
#include "platform/posix/DesktopPath.h"
#include "platform/posix/ProfileText.h"
#include "platform/posix/SystemError.h"
#include "platform/posix/WholeFile.h"

#include <cerrno>

namespace velmo::platform
{
namespace
{

bool ReadsBack(std::string_view section, std::string_view key, std::string_view value)
{
    constexpr std::string_view kLineEnds("\r\n\0", 3);
    constexpr auto none = std::string_view::npos;
    return section.find(']') == none && section.find_first_of(kLineEnds) == none &&
           key.find('=') == none && key.find_first_of(kLineEnds) == none &&
           value.find_first_of(kLineEnds) == none && !key.empty() &&
           key.find_first_of(" \t;[") != 0;
}

} // namespace

std::optional<std::string> ReadSettingsFile(const char* file, std::string_view section,
                                            std::string_view key)
{
    const auto text = MFile::ReadAll((DesktopRoot() / file).string());
    const auto value = text ? ProfileText::Value(text.Value(), section, key) : std::nullopt;
    return value ? std::optional<std::string>(*value) : std::nullopt;
}

Result<Done> WriteSettingsFile(const char* file, std::string_view section, std::string_view key,
                               std::optional<std::string_view> value)
{
    const std::filesystem::path path = DesktopRoot() / file;
    if (!ReadsBack(section, key, value.value_or("")))
    {
        return SystemError(EINVAL, path);
    }
    std::error_code error;
    std::filesystem::create_directories(DesktopRoot(), error);
    return EditFile(path, [&](std::string_view text) {
        return value ? ProfileText::WithValue(text, section, key, ProfileText::Quoted(*value))
                     : ProfileText::WithoutKey(text, section, key);
    });
}

} // namespace velmo::platform
