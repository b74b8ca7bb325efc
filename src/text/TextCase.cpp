#include "text/TextCase.h"

#include "text/Utf8.h"

#include <algorithm>
#include <array>

namespace velmo
{
namespace
{

std::string Mapped(std::string_view text, char (*map)(char))
{
    std::string mapped(text);
    std::ranges::transform(mapped, mapped.begin(), map);
    return mapped;
}

/// Capital letters, @a step apart, with the way to their small ones.
struct Capitals
{
    char32_t first;
    char32_t last;
    char32_t step;
    char32_t distance;
};

constexpr std::array kCapitals{
    Capitals{'A', 'Z', 1, 32},     Capitals{0xC0, 0xD6, 1, 32},   Capitals{0xD8, 0xDE, 1, 32},
    Capitals{0x100, 0x12E, 2, 1},  Capitals{0x132, 0x136, 2, 1},  Capitals{0x139, 0x147, 2, 1},
    Capitals{0x14A, 0x176, 2, 1},  Capitals{0x179, 0x17D, 2, 1},  Capitals{0x1A0, 0x1A0, 1, 1},
    Capitals{0x1AF, 0x1AF, 1, 1},  Capitals{0x386, 0x386, 1, 38}, Capitals{0x388, 0x38A, 1, 37},
    Capitals{0x38C, 0x38C, 1, 64}, Capitals{0x38E, 0x38F, 1, 63}, Capitals{0x391, 0x3A1, 1, 32},
    Capitals{0x3A3, 0x3AB, 1, 32}, Capitals{0x400, 0x40F, 1, 80}, Capitals{0x410, 0x42F, 1, 32},
    Capitals{0x490, 0x490, 1, 1},
};
constexpr char32_t kCapitalYWithDiaeresis = 0x178;
constexpr char32_t kSmallYWithDiaeresis = 0xFF;

char32_t Small(char32_t c)
{
    if (c == kCapitalYWithDiaeresis)
    {
        return kSmallYWithDiaeresis;
    }
    const auto* const range = std::ranges::find_if(kCapitals, [c](const Capitals& capitals) {
        return c >= capitals.first && c <= capitals.last &&
               (c - capitals.first) % capitals.step == 0;
    });
    return range == kCapitals.end() ? c : c + range->distance;
}

} // namespace

std::string FoldedCase(std::string_view text)
{
    std::string folded;
    folded.reserve(text.size());
    for (const char32_t c : CodePoints(text))
    {
        AppendCodePoint(folded, Small(c));
    }
    return folded;
}

std::string UpperCase(std::string_view text)
{
    return Mapped(text, UpperCase);
}

std::string LowerCase(std::string_view text)
{
    return Mapped(text, LowerCase);
}

bool EqualInAnyCase(std::string_view a, std::string_view b)
{
    return std::ranges::equal(
        a, b, {}, [](char c) { return LowerCase(c); }, [](char c) { return LowerCase(c); });
}

std::string_view Trimmed(std::string_view text, std::string_view blanks)
{
    const std::size_t first = text.find_first_not_of(blanks);
    if (first == std::string_view::npos)
    {
        return {};
    }
    return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

} // namespace velmo
