#include "platform/ProfileBytes.h"

#include "platform/AnsiText.h"
#include "text/Utf8.h"

#include <utility>

namespace velmo::platform
{
namespace
{

constexpr std::string_view kUtf16Mark = "\xFF\xFE";

std::string ToUtf16(std::string_view text)
{
    std::string bytes;
    const auto add = [&](char32_t unit) {
        bytes += static_cast<char>(unit & 0xFFU);
        bytes += static_cast<char>(unit >> 8);
    };
    for (const char32_t c : CodePoints(text))
    {
        if (c < 0x10000)
        {
            add(c);
        }
        else
        {
            add(0xD800 + ((c - 0x10000) >> 10));
            add(0xDC00 + ((c - 0x10000) & 0x3FF));
        }
    }
    return bytes;
}

} // namespace

ProfileBytes::ProfileBytes(std::string_view bytes)
    : m_isUtf16(bytes.starts_with(kUtf16Mark)),
      m_text(m_isUtf16 ? FromUtf16(bytes.substr(kUtf16Mark.size())) : std::string(bytes))
{}

ProfileBytes ProfileBytes::OfText(std::string text)
{
    ProfileBytes profile(kUtf16Mark);
    profile.m_text = std::move(text);
    return profile;
}

std::string ProfileBytes::Inward(std::string_view utf8) const
{
    return m_isUtf16 ? std::string(utf8) : ToAnsi(utf8);
}

std::string ProfileBytes::Outward(std::string_view part) const
{
    return m_isUtf16 ? std::string(part) : FromAnsi(part);
}

std::string ProfileBytes::FileBytes(std::string text) const
{
    return m_isUtf16 ? std::string(kUtf16Mark) + ToUtf16(text) : std::move(text);
}

std::string Shortened(std::string_view text, std::size_t most)
{
    std::size_t count = 0;
    for (const char32_t c : CodePoints(text))
    {
        const std::size_t units = c < 0x10000 ? 1 : 2;
        if (units > most)
        {
            break;
        }
        most -= units;
        ++count;
    }
    return std::string(FirstCharacters(text, count));
}

} // namespace velmo::platform
