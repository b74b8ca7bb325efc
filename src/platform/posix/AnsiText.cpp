#include "platform/AnsiText.h"

#include "text/Utf8.h"

#include <algorithm>
#include <array>

namespace velmo::platform
{
namespace
{

/// What code page 1252 has at 0x80 to 0x9F; elsewhere a byte is its own code point.
constexpr std::size_t kFirst = 0x80;
constexpr std::array<char32_t, 32> kUpperControls{
    0x20AC,       kReplacement, 0x201A, 0x0192, 0x201E, 0x2026,       0x2020, 0x2021,
    0x02C6,       0x2030,       0x0160, 0x2039, 0x0152, kReplacement, 0x017D, kReplacement,
    kReplacement, 0x2018,       0x2019, 0x201C, 0x201D, 0x2022,       0x2013, 0x2014,
    0x02DC,       0x2122,       0x0161, 0x203A, 0x0153, kReplacement, 0x017E, 0x0178,
};

char AnsiByte(char32_t c)
{
    if (c < kFirst || (c >= 0xA0 && c <= 0xFF))
    {
        return static_cast<char>(c);
    }
    const auto* found = std::find(kUpperControls.begin(), kUpperControls.end(), c);
    if (c == kReplacement || found == kUpperControls.end())
    {
        return '?';
    }
    return static_cast<char>(kFirst + static_cast<std::size_t>(found - kUpperControls.begin()));
}

} // namespace

std::string FromAnsi(std::string_view bytes)
{
    std::string text;
    text.reserve(bytes.size());
    for (const char signedByte : bytes)
    {
        const auto byte = static_cast<unsigned char>(signedByte);
        const bool inTable = byte >= kFirst && byte < kFirst + kUpperControls.size();
        AppendCodePoint(text, inTable ? kUpperControls[byte - kFirst] : byte);
    }
    return text;
}

std::string ToAnsi(std::string_view text)
{
    std::string bytes;
    bytes.reserve(text.size());
    for (const char32_t c : CodePoints(text))
    {
        bytes += AnsiByte(c);
    }
    return bytes;
}

} // namespace velmo::platform
