#include "catalogue/CommonFolder.h"

#include "platform/DesktopFolders.h"
#include "platform/PrivateProfile.h"
#include "platform/UserSettings.h"

#include <utility>

namespace velmo
{
namespace
{

constexpr std::size_t kValueBuffer = 256;

} // namespace

std::string WinIniPath()
{
    return WithBackslash(platform::WindowsDirectory()) + "Win.ini";
}

std::string SharedValue(std::string_view name)
{
    std::string value =
        platform::GetPrivateProfileText(kVendorSection, name, "", kValueBuffer, WinIniPath());
    if (value.empty())
    {
        value = platform::ReadUserSetting(kVendorApplication, kFolderSection, name).value_or("");
    }
    return value;
}

std::string WithBackslash(std::string folder)
{
    return folder.ends_with('\\') ? std::move(folder) : std::move(folder) + "\\";
}

std::string CommonFolder()
{
    return WithBackslash(SharedValue("CommonDirectory"));
}

std::string SettingsFilePath()
{
    return CommonFolder() + "VelmoUpd.ini";
}

std::string LogFilePath()
{
    const std::string folder = SharedValue("CommonDirectory");
    return folder.empty() ? std::string() : WithBackslash(folder) + "VelmoUpd.log";
}

} // namespace velmo
