#include "platform/AnsiText.h"

#include "text/Utf8.h"

namespace velmo::platform
{
namespace
{

constexpr std::string_view kUtf16Mark = "\xFF\xFE";

constexpr bool IsHighSurrogate(char32_t unit)
{
    return unit >= 0xD800 && unit < 0xDC00;
}

constexpr bool IsLowSurrogate(char32_t unit)
{
    return unit >= 0xDC00 && unit < 0xE000;
}

char32_t UnitAt(std::string_view bytes, std::size_t place)
{
    return static_cast<unsigned char>(bytes[place]) |
           (static_cast<char32_t>(static_cast<unsigned char>(bytes[place + 1])) << 8);
}

} // namespace

std::string FromUtf16(std::string_view bytes)
{
    std::string text;
    text.reserve(bytes.size() / 2);
    std::size_t place = 0;
    for (; place + 1 < bytes.size(); place += 2)
    {
        char32_t c = UnitAt(bytes, place);
        if (IsHighSurrogate(c) && place + 3 < bytes.size() &&
            IsLowSurrogate(UnitAt(bytes, place + 2)))
        {
            c = 0x10000 + ((c - 0xD800) << 10) + (UnitAt(bytes, place + 2) - 0xDC00);
            place += 2;
        }
        else if (IsHighSurrogate(c) || IsLowSurrogate(c))
        {
            c = kReplacement;
        }
        AppendCodePoint(text, c);
    }
    if (place < bytes.size())
    {
        AppendCodePoint(text, kReplacement);
    }
    return text;
}

std::string FromFileBytes(std::string_view bytes)
{
    if (bytes.starts_with(kUtf16Mark))
    {
        return FromUtf16(bytes.substr(kUtf16Mark.size()));
    }
    if (!bytes.starts_with(kUtf8Mark))
    {
        return FromAnsi(bytes);
    }
    return ValidUtf8(bytes.substr(kUtf8Mark.size()));
}

} // namespace velmo::platform
