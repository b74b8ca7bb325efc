#include "platform/UserSettings.h"

#include "platform/posix/SettingsFile.h"

namespace velmo::platform
{
namespace
{

constexpr const char* kFile = "user-settings.ini";

std::string SectionOf(std::string_view application, std::string_view section)
{
    return std::string(application) + "\\" + std::string(section);
}

} // namespace

std::optional<std::string> ReadUserSetting(std::string_view application, std::string_view section,
                                           std::string_view key)
{
    return ReadSettingsFile(kFile, SectionOf(application, section), key);
}

Result<Done> WriteUserSetting(std::string_view application, std::string_view section,
                              std::string_view key, std::string_view value)
{
    return WriteSettingsFile(kFile, SectionOf(application, section), key, value);
}

Result<Done> DeleteUserSetting(std::string_view application, std::string_view section,
                               std::string_view key)
{
    return WriteSettingsFile(kFile, SectionOf(application, section), key, std::nullopt);
}

} // namespace velmo::platform
