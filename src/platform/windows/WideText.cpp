#include "platform/windows/WideText.h"

#include <windows.h>

#include <array>

namespace velmo::platform
{

std::wstring Wide(std::string_view text)
{
    const int size = static_cast<int>(text.size());
    const int n = MultiByteToWideChar(CP_UTF8, 0, text.data(), size, nullptr, 0);
    std::wstring wide(static_cast<std::size_t>(n), L'\0');
    MultiByteToWideChar(CP_UTF8, 0, text.data(), size, wide.data(), n);
    return wide;
}

std::string Narrow(std::wstring_view text)
{
    const int size = static_cast<int>(text.size());
    const int n = WideCharToMultiByte(CP_UTF8, 0, text.data(), size, nullptr, 0, nullptr, nullptr);
    std::string narrow(static_cast<std::size_t>(n), '\0');
    WideCharToMultiByte(CP_UTF8, 0, text.data(), size, narrow.data(), n, nullptr, nullptr);
    return narrow;
}

Error SystemError(unsigned long code)
{
    std::array<wchar_t, 512> buffer{};
    DWORD n = FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS, nullptr,
                             code, 0, buffer.data(), static_cast<DWORD>(buffer.size()), nullptr);
    while (n > 0 && (buffer[n - 1] == L'\r' || buffer[n - 1] == L'\n' || buffer[n - 1] == L' '))
    {
        --n;
    }
    return {static_cast<std::int32_t>(code), Narrow({buffer.data(), n})};
}

Error LastSystemError()
{
    return SystemError(GetLastError());
}

} // namespace velmo::platform
