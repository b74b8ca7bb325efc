#include "text/WebAddress.h"

#include "text/TextCase.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>

namespace velmo
{
namespace
{

struct Scheme
{
    std::string_view prefix;
    WebScheme scheme;
};

constexpr std::array kSchemes{
    Scheme{"http://", WebScheme::Http},
    Scheme{"https://", WebScheme::Https},
    Scheme{"ftp://", WebScheme::Ftp},
};

bool HasControl(std::string_view text)
{
    return std::ranges::any_of(
        text, [](char c) { return static_cast<unsigned char>(c) < ' ' || c == '\x7F'; });
}

/// Percent-encodes what an address cannot have: blanks, quotes, some brackets and marks, all but ASCII.
std::string Encoded(std::string_view text)
{
    constexpr std::string_view kNeverPlain = " \"<>\\^`{|}";
    constexpr std::string_view kDigits = "0123456789ABCDEF";
    std::string encoded;
    for (const char c : text)
    {
        const auto byte = static_cast<unsigned char>(c);
        if (byte < 0x80 && kNeverPlain.find(c) == std::string_view::npos)
        {
            encoded += c;
            continue;
        }
        encoded += {'%', kDigits[byte >> 4], kDigits[byte & 0xFU]};
    }
    return encoded;
}

bool IsHexadecimal(char c)
{
    return IsDigit(c) || (LowerCase(c) >= 'a' && LowerCase(c) <= 'f');
}

bool IsHost(std::string_view host)
{
    if (host.starts_with('[') && host.ends_with(']'))
    {
        return host.find(':') != std::string_view::npos &&
               std::ranges::all_of(host.substr(1, host.size() - 2),
                                   [](char c) { return IsHexadecimal(c) || c == ':' || c == '.'; });
    }
    return !host.empty() && !host.starts_with('-') && !host.starts_with('.') &&
           std::ranges::all_of(host, [](char c) {
               return IsLetter(c) || IsDigit(c) || c == '-' || c == '.' || c == '_';
           });
}

bool IsPort(std::string_view port)
{
    std::uint16_t number = 0;
    const char* end = port.data() + port.size();
    const auto [stop, error] = std::from_chars(port.data(), end, number);
    return port.empty() || (error == std::errc() && stop == end && number != 0);
}

/// Host and port, a user before them.
bool IsAuthority(std::string_view authority)
{
    const std::string_view server = authority.substr(authority.rfind('@') + 1);
    const std::size_t bracket = server.rfind(']');
    const std::size_t colon = server.find(':', bracket == std::string_view::npos ? 0 : bracket);
    const bool hasPort = colon != std::string_view::npos;
    return !HasControl(authority) && Encoded(authority) == authority &&
           IsHost(server.substr(0, colon)) && (!hasPort || IsPort(server.substr(colon + 1)));
}

const Scheme* FindScheme(std::string_view text)
{
    const auto* const found = std::ranges::find_if(kSchemes, [text](const Scheme& scheme) {
        return EqualInAnyCase(text.substr(0, scheme.prefix.size()), scheme.prefix);
    });
    return found == kSchemes.end() ? nullptr : found;
}

} // namespace

std::optional<WebScheme> WebSchemeOf(std::string_view text)
{
    const Scheme* known = FindScheme(text);
    return known == nullptr ? std::nullopt : std::optional(known->scheme);
}

std::optional<WebAddress> ParseWebAddress(std::string_view text)
{
    const Scheme* known = FindScheme(text);
    if (known == nullptr || HasControl(text))
    {
        return std::nullopt;
    }
    const std::size_t host = known->prefix.size();
    if (!IsAuthority(text.substr(host, text.find_first_of("/?#", host) - host)))
    {
        return std::nullopt;
    }
    return WebAddress{known->scheme, Encoded(text)};
}

} // namespace velmo
