#include "platform/AnsiText.h"

#include "platform/windows/WideText.h"

#include <windows.h>

#include <algorithm>

namespace velmo::platform
{
namespace
{

constexpr wchar_t kReplacementUnit = 0xFFFD;

/// One unit for each pair of surrogates, so that a character outside the code page is one "?".
std::wstring WithoutSurrogates(std::wstring wide)
{
    std::erase_if(wide, [](wchar_t unit) { return unit >= 0xDC00 && unit < 0xE000; });
    std::replace_if(
        wide.begin(), wide.end(), [](wchar_t unit) { return unit >= 0xD800 && unit < 0xDC00; },
        kReplacementUnit);
    return wide;
}

std::string Bytes(std::string_view text, DWORD fit)
{
    const bool isUtf8 = GetACP() == CP_UTF8;
    const std::wstring wide = isUtf8 ? Wide(text) : WithoutSurrogates(Wide(text));
    // The UTF-8 code page has everything and takes neither the flag nor a default character.
    const DWORD flags = isUtf8 ? 0 : fit;
    const char* otherwise = isUtf8 ? nullptr : "?";
    const int size = static_cast<int>(wide.size());
    const int n =
        WideCharToMultiByte(CP_ACP, flags, wide.data(), size, nullptr, 0, otherwise, nullptr);
    std::string bytes(static_cast<std::size_t>(n), '\0');
    WideCharToMultiByte(CP_ACP, flags, wide.data(), size, bytes.data(), n, otherwise, nullptr);
    return bytes;
}

} // namespace

std::string FromAnsi(std::string_view bytes)
{
    const int size = static_cast<int>(bytes.size());
    const int n = MultiByteToWideChar(CP_ACP, 0, bytes.data(), size, nullptr, 0);
    std::wstring wide(static_cast<std::size_t>(n), L'\0');
    MultiByteToWideChar(CP_ACP, 0, bytes.data(), size, wide.data(), n);
    // Windows shows a byte that the code page leaves open as a control character.
    std::replace_if(
        wide.begin(), wide.end(), [](wchar_t unit) { return unit >= 0x80 && unit < 0xA0; },
        kReplacementUnit);
    return Narrow(wide);
}

std::string ToAnsi(std::string_view text)
{
    return Bytes(text, WC_NO_BEST_FIT_CHARS);
}

std::string ToNearestAnsi(std::string_view text)
{
    return Bytes(text, 0);
}

} // namespace velmo::platform
