#include "catalogue/CommonFolder.h"

#include "catalogue/LocatorTable.h"
#include "platform/DesktopFolders.h"
#include "platform/PrivateProfile.h"
#include "platform/UserSettings.h"

#include <utility>

namespace velmo
{
std::string WinIniPath()
{
    return WithBackslash(platform::WindowsDirectory()) + "Win.ini";
}

std::string WithBackslash(std::string folder)
{
    return folder.ends_with('\\') ? std::move(folder) : std::move(folder) + "\\";
}

SharedValues SharedValues::Read()
{
    SharedValues values;
    // Nobody can be told when it cannot be read: where the log lies stands in it.
    if (const auto winIni = platform::ReadProfileSection(WinIniPath(), kVendorSection))
    {
        values.m_winIni = SettingsSnapshot(winIni.Value());
    }
    values.m_userSettings = platform::ReadUserSettings(kVendorApplication, kFolderSection);
    return values;
}

std::string SharedValues::Value(std::string_view name) const
{
    std::string value = m_winIni.String(kVendorSection, name, "");
    return value.empty() ? m_userSettings.Value(kFolderSection, name).value_or("") : value;
}

std::string SharedValues::CommonFolder() const
{
    return WithBackslash(Value(kCommonFolderName));
}

std::string SharedValues::SettingsFilePath() const
{
    return CommonFolder() + "VelmoUpd.ini";
}

std::string SharedValues::LogFilePath() const
{
    const std::string folder = Value(kCommonFolderName);
    return folder.empty() ? std::string() : WithBackslash(folder) + "VelmoUpd.log";
}

std::string CommonFolder()
{
    return SharedValues::Read().CommonFolder();
}

std::string SettingsFilePath()
{
    return SharedValues::Read().SettingsFilePath();
}

std::string LogFilePath()
{
    return SharedValues::Read().LogFilePath();
}

} // namespace velmo
