#include "platform/AnsiText.h"

#include "text/Utf8.h"

#include <algorithm>
#include <array>
#include <iterator>

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

/// Characters that follow one another, with the byte that code page 1252 has nearest to each.
struct Nearest
{
    char32_t first;
    std::string_view bytes;
};

/// As Windows' own table has it.
// clang-format off
constexpr std::array kNearest{
    Nearest{0x0100, "AaAaAaCcCcCcCcDd\xD0" "dEeEeEeEeEeGgGgGgGgHhHh" "IiIiIiIiIi"},
    Nearest{0x0134, "JjKk"}, Nearest{0x0139, "LlLlLl"}, Nearest{0x0141, "LlNnNnNn"},
    Nearest{0x014C, "OoOoOo"}, Nearest{0x0154, "RrRrRrSsSsSs"},
    Nearest{0x0162, "TtTtTtUuUuUuUuUuUuWwYy"}, Nearest{0x0179, "ZzZz"}, Nearest{0x0180, "b"},
    Nearest{0x0189, "\xD0"}, Nearest{0x0191, "\x83"}, Nearest{0x0197, "I"}, Nearest{0x019A, "l"},
    Nearest{0x019F, "OOo"}, Nearest{0x01AB, "t"}, Nearest{0x01AE, "TUu"}, Nearest{0x01B6, "z"},
    Nearest{0x01C0, "|"}, Nearest{0x01C3, "!"}, Nearest{0x01CD, "AaIiOoUuUuUuUuUu"},
    Nearest{0x01DE, "Aa"}, Nearest{0x01E4, "GgGgKkOoOo"}, Nearest{0x01F0, "j"},
    Nearest{0x0261, "g"}, Nearest{0x02B9, "'\""}, Nearest{0x02BC, "'"}, Nearest{0x02C4, "^"},
    Nearest{0x02C8, "'\xAF\xB4`"}, Nearest{0x02CD, "_"}, Nearest{0x02DA, "\xB0"},
    Nearest{0x0300, "`\xB4^~\xAF\xAF"}, Nearest{0x0308, "\xA8"}, Nearest{0x030A, "\xB0"},
    Nearest{0x030E, "\""}, Nearest{0x0327, "\xB8"}, Nearest{0x0331, "__"}, Nearest{0x037E, ";"},
    Nearest{0x0393, "G"}, Nearest{0x0398, "T"}, Nearest{0x03A3, "S"}, Nearest{0x03A6, "F"},
    Nearest{0x03A9, "O"}, Nearest{0x03B1, "a\xDF"}, Nearest{0x03B4, "de"},
    Nearest{0x03BC, "\xB5"}, Nearest{0x03C0, "p"}, Nearest{0x03C3, "st"}, Nearest{0x03C6, "f"},
    Nearest{0x04BB, "h"}, Nearest{0x0589, ":"}, Nearest{0x066A, "%"}, Nearest{0x2000, "       "},
    Nearest{0x2010, "--"}, Nearest{0x2017, "="}, Nearest{0x2024, "\xB7"}, Nearest{0x2032, "'"},
    Nearest{0x2035, "`"}, Nearest{0x2044, "/"}, Nearest{0x2070, "\xB0"}, Nearest{0x2074, "45678"},
    Nearest{0x207F, "n0123456789"}, Nearest{0x20A1, "\xA2"}, Nearest{0x20A4, "\xA3"},
    Nearest{0x20A7, "P"}, Nearest{0x2102, "C"}, Nearest{0x2107, "E"}, Nearest{0x210A, "gHHHh"},
    Nearest{0x2110, "IILl"}, Nearest{0x2115, "N"}, Nearest{0x2118, "PPQRRR"},
    Nearest{0x2124, "Z"}, Nearest{0x2128, "Z"}, Nearest{0x212A, "K\xC5" "BCeeEF"},
    Nearest{0x2133, "Mo"}, Nearest{0x2205, "\xD8"}, Nearest{0x2212, "-\xB1"},
    Nearest{0x2215, "/\\*\xB0\xB7v"}, Nearest{0x221E, "8"}, Nearest{0x2223, "|"},
    Nearest{0x2229, "n"}, Nearest{0x2236, ":"}, Nearest{0x223C, "~"}, Nearest{0x2248, "\x98"},
    Nearest{0x2261, "="}, Nearest{0x2264, "=="}, Nearest{0x226A, "\xAB\xBB"},
    Nearest{0x22C5, "\xB7"}, Nearest{0x2302, "\xA6^"}, Nearest{0x2310, "\xAC"},
    Nearest{0x2320, "()"}, Nearest{0x2329, "<>"}, Nearest{0x2500, "-"}, Nearest{0x2502, "\xA6"},
    Nearest{0x250C, "+"}, Nearest{0x2510, "+"}, Nearest{0x2514, "+"}, Nearest{0x2518, "+"},
    Nearest{0x251C, "+"}, Nearest{0x2524, "\xA6"}, Nearest{0x252C, "-"}, Nearest{0x2534, "-"},
    Nearest{0x253C, "+"}, Nearest{0x2550, "-\xA6++++++++++++\xA6\xA6\xA6\xA6\xA6\xA6------+++"},
    Nearest{0x2580, "\xAF"}, Nearest{0x2584, "_"}, Nearest{0x2588, "\xA6"},
    Nearest{0x258C, "\xA6"}, Nearest{0x2590, "\xA6\xA6\xA6\xA6"}, Nearest{0x25A0, "\xA6"},
    Nearest{0x263C, "\xA4"}, Nearest{0x2758, "|"}, Nearest{0x3000, " "},
    Nearest{0x3008, "<>\xAB\xBB"}, Nearest{0x301A, "[]"}, Nearest{0x30FB, "\xB7"},
    Nearest{0xFF01, "!\"#$%&'()*+,-./0123456789:;<=>"},
    Nearest{0xFF20, "@ABCDEFGHIJKLMNOPQRSTUVWXYZ[\\]^_`abcdefg" "hijklmnopqrstuvwxyz{|}~"},
};
// clang-format on

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

/// What is near to a character that the code page does not have; "?" for most.
char NearestByte(char32_t c)
{
    const auto* const next = std::ranges::upper_bound(kNearest, c, {}, &Nearest::first);
    const Nearest run = next == kNearest.begin() ? Nearest{} : *std::prev(next);
    return c - run.first < run.bytes.size() ? run.bytes[c - run.first] : AnsiByte(c);
}

std::string Bytes(std::string_view text, char (*byteOf)(char32_t))
{
    std::string bytes;
    bytes.reserve(text.size());
    for (const char32_t c : CodePoints(text))
    {
        bytes += byteOf(c);
    }
    return bytes;
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
    return Bytes(text, AnsiByte);
}

std::string ToNearestAnsi(std::string_view text)
{
    return Bytes(text, NearestByte);
}

} // namespace velmo::platform
