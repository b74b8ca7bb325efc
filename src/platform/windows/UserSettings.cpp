#include "platform/UserSettings.h"

#include "platform/MachinePolicy.h"
#include "platform/ProfileText.h"
#include "platform/windows/WideText.h"

#include <windows.h>

#include <vector>

namespace velmo::platform
{
namespace
{

constexpr const wchar_t* kPolicyKey = L"Software\\Policies\\Velmo Software\\Update Manager";

std::wstring KeyOf(std::string_view application, std::string_view section)
{
    return L"Software\\VB and VBA Program Settings\\" + Wide(application) + L"\\" + Wide(section);
}

/// A text value, as UTF-8; nothing when it is absent or no text.
std::optional<std::string> ReadRegistryText(HKEY root, const std::wstring& key,
                                            std::string_view name)
{
    const std::wstring wideName = Wide(name);
    std::wstring value;
    LSTATUS status = ERROR_MORE_DATA;
    DWORD size = 256 * sizeof(wchar_t);
    while (status == ERROR_MORE_DATA)
    {
        value.resize(size / sizeof(wchar_t));
        status = RegGetValueW(root, key.c_str(), wideName.c_str(), RRF_RT_REG_SZ, nullptr,
                              value.data(), &size);
    }
    if (status != ERROR_SUCCESS)
    {
        return std::nullopt;
    }
    return Narrow(value.c_str());
}

/// Writes a text value and creates its key when needed.
Result<Done> WriteRegistryText(HKEY root, const std::wstring& key, std::string_view name,
                               std::string_view value)
{
    HKEY handle = nullptr;
    LSTATUS status = RegCreateKeyExW(root, key.c_str(), 0, nullptr, REG_OPTION_NON_VOLATILE,
                                     KEY_SET_VALUE, nullptr, &handle, nullptr);
    if (status == ERROR_SUCCESS)
    {
        const std::wstring wide = Wide(value);
        const std::size_t size = (wide.size() + 1) * sizeof(wchar_t);
        status =
            RegSetValueExW(handle, Wide(name).c_str(), 0, REG_SZ,
                           reinterpret_cast<const BYTE*>(wide.c_str()), static_cast<DWORD>(size));
        RegCloseKey(handle);
    }
    return status == ERROR_SUCCESS ? Result<Done>(Done{}) : SystemError(static_cast<DWORD>(status));
}

} // namespace

std::optional<std::string> ReadUserSetting(std::string_view application, std::string_view section,
                                           std::string_view key)
{
    return ReadRegistryText(HKEY_CURRENT_USER, KeyOf(application, section), key);
}

Profile ReadUserSettings(std::string_view application, std::string_view section)
{
    const std::wstring path = KeyOf(application, section);
    HKEY key = nullptr;
    if (RegOpenKeyExW(HKEY_CURRENT_USER, path.c_str(), 0, KEY_QUERY_VALUE, &key) != ERROR_SUCCESS)
    {
        return {};
    }
    constexpr DWORD kLongestName = 16'383;
    std::string block;
    std::vector<wchar_t> name(kLongestName + 1);
    for (DWORD index = 0;; ++index)
    {
        auto length = static_cast<DWORD>(name.size());
        if (RegEnumValueW(key, index, name.data(), &length, nullptr, nullptr, nullptr, nullptr) !=
            ERROR_SUCCESS)
        {
            break;
        }
        const std::string text = Narrow(std::wstring(name.data(), length));
        const auto value = ReadRegistryText(HKEY_CURRENT_USER, path, text);
        // A line break in a value would begin an entry of its own; no folder has one.
        if (value && value->find_first_of("\r\n") == std::string::npos)
        {
            block += text + "=" + ProfileText::Quoted(*value) + '\0';
        }
    }
    RegCloseKey(key);
    return Profile(section, block);
}

Result<Done> WriteUserSetting(std::string_view application, std::string_view section,
                              std::string_view key, std::string_view value)
{
    return WriteRegistryText(HKEY_CURRENT_USER, KeyOf(application, section), key, value);
}

std::optional<std::string> ReadMachinePolicy(std::string_view name)
{
    auto value = ReadRegistryText(HKEY_LOCAL_MACHINE, kPolicyKey, name);
    return value && value->empty() ? std::nullopt : value;
}

Result<Done> WriteMachinePolicy(std::string_view name, std::string_view value)
{
    return WriteRegistryText(HKEY_LOCAL_MACHINE, kPolicyKey, name, value);
}

} // namespace velmo::platform
