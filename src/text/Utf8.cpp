#include "text/Utf8.h"

#include <utf8.h>

#include <algorithm>
#include <iterator>

namespace velmo
{

std::size_t CharacterCount(std::string_view text)
{
    return static_cast<std::size_t>(std::ranges::count_if(text, StartsCharacter));
}

std::string_view FirstCharacters(std::string_view text, std::size_t most)
{
    const auto end =
        std::ranges::find_if(text, [&](char c) { return StartsCharacter(c) && most-- == 0; });
    return text.substr(0, static_cast<std::size_t>(end - text.begin()));
}

std::string ValidUtf8(std::string_view text)
{
    std::string valid;
    valid.reserve(text.size());
    utf8::replace_invalid(text.begin(), text.end(), std::back_inserter(valid), kReplacement);
    return valid;
}

bool IsValidUtf8(std::string_view text)
{
    return utf8::is_valid(text.begin(), text.end());
}

std::string WithoutControls(std::string_view text)
{
    std::string clean;
    clean.reserve(text.size());
    for (const char32_t c : CodePoints(text))
    {
        const bool isControl = c < 0x20 || (c >= 0x7F && c < 0xA0);
        AppendCodePoint(clean, isControl ? kReplacement : c);
    }
    return clean;
}

std::u32string CodePoints(std::string_view text)
{
    const std::string valid = ValidUtf8(text);
    std::u32string points;
    points.reserve(text.size());
    utf8::unchecked::utf8to32(valid.begin(), valid.end(), std::back_inserter(points));
    return points;
}

void AppendCodePoint(std::string& text, char32_t c)
{
    utf8::append(c, std::back_inserter(text));
}

} // namespace velmo
