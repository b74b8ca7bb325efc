#include "platform/windows/RegistryText.h"

#include "platform/windows/WideText.h"

namespace velmo::platform
{

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

} // namespace velmo::platform
