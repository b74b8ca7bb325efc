#include "platform/UserSettings.h"

#include "platform/windows/RegistryText.h"
#include "platform/windows/WideText.h"

namespace velmo::platform
{
namespace
{

std::wstring KeyOf(std::string_view application, std::string_view section)
{
    return L"Software\\VB and VBA Program Settings\\" + Wide(application) + L"\\" + Wide(section);
}

} // namespace

std::optional<std::string> ReadUserSetting(std::string_view application, std::string_view section,
                                           std::string_view key)
{
    return ReadRegistryText(HKEY_CURRENT_USER, KeyOf(application, section), key);
}

Result<Done> WriteUserSetting(std::string_view application, std::string_view section,
                              std::string_view key, std::string_view value)
{
    return WriteRegistryText(HKEY_CURRENT_USER, KeyOf(application, section), key, value);
}

Result<Done> DeleteUserSetting(std::string_view application, std::string_view section,
                               std::string_view key)
{
    const LSTATUS status = RegDeleteKeyValueW(
        HKEY_CURRENT_USER, KeyOf(application, section).c_str(), Wide(key).c_str());
    const bool fine = status == ERROR_SUCCESS || status == ERROR_FILE_NOT_FOUND;
    return fine ? Result<Done>(Done{}) : SystemError(static_cast<DWORD>(status));
}

} // namespace velmo::platform
