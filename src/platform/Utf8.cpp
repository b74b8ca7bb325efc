#include "platform/Utf8.h"

#include <array>

namespace velmo::platform
{
namespace
{

/// The sequences that begin with a lead byte of one range: how many bytes follow, and what the
/// first of them may be (which keeps out overlong forms, surrogates and what lies past U+10FFFF).
struct Lead
{
    unsigned char first;
    unsigned char last;
    int following;
    unsigned char lowest;
    unsigned char highest;
};

constexpr std::array kLeads{
    Lead{0xC2, 0xDF, 1, 0x80, 0xBF}, Lead{0xE0, 0xE0, 2, 0xA0, 0xBF},
    Lead{0xE1, 0xEC, 2, 0x80, 0xBF}, Lead{0xED, 0xED, 2, 0x80, 0x9F},
    Lead{0xEE, 0xEF, 2, 0x80, 0xBF}, Lead{0xF0, 0xF0, 3, 0x90, 0xBF},
    Lead{0xF1, 0xF3, 3, 0x80, 0xBF}, Lead{0xF4, 0xF4, 3, 0x80, 0x8F},
};

char32_t TakeSequence(const Lead& lead, unsigned char byte, std::string_view& text)
{
    constexpr std::array<unsigned char, 4> kLeadBits{0x7F, 0x1F, 0x0F, 0x07};
    char32_t c = byte & kLeadBits[static_cast<std::size_t>(lead.following)];
    unsigned char lowest = lead.lowest;
    unsigned char highest = lead.highest;
    for (int i = 0; i < lead.following; ++i)
    {
        const auto next = static_cast<unsigned char>(text.empty() ? '\0' : text.front());
        if (next < lowest || next > highest)
        {
            return kReplacement;
        }
        c = (c << 6) | (next & 0x3FU);
        text.remove_prefix(1);
        lowest = 0x80;
        highest = 0xBF;
    }
    return c;
}

} // namespace

char32_t TakeCodePoint(std::string_view& text)
{
    const auto byte = static_cast<unsigned char>(text.front());
    text.remove_prefix(1);
    if (byte < 0x80)
    {
        return byte;
    }
    for (const Lead& lead : kLeads)
    {
        if (byte >= lead.first && byte <= lead.last)
        {
            return TakeSequence(lead, byte, text);
        }
    }
    return kReplacement;
}

void AppendCodePoint(std::string& text, char32_t c)
{
    const auto tail = [&](int shift) { text += static_cast<char>(0x80U | ((c >> shift) & 0x3FU)); };
    if (c < 0x80)
    {
        text += static_cast<char>(c);
    }
    else if (c < 0x800)
    {
        text += static_cast<char>(0xC0U | (c >> 6));
        tail(0);
    }
    else if (c < 0x10000)
    {
        text += static_cast<char>(0xE0U | (c >> 12));
        tail(6);
        tail(0);
    }
    else
    {
        text += static_cast<char>(0xF0U | (c >> 18));
        tail(12);
        tail(6);
        tail(0);
    }
}

} // namespace velmo::platform
