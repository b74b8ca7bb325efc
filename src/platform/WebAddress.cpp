#include "platform/WebAddress.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>

namespace velmo::platform
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

constexpr std::string_view kLetters = "abcdefghijklmnopqrstuvwxyz";
constexpr std::string_view kDigits = "0123456789";

char Lower(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

bool ConsistsOf(std::string_view text, std::initializer_list<std::string_view> sets)
{
    return std::all_of(text.begin(), text.end(), [&sets](char c) {
        return std::any_of(sets.begin(), sets.end(),
                           [c](std::string_view set) { return set.find(Lower(c)) != set.npos; });
    });
}

bool IsHost(std::string_view host)
{
    if (host.starts_with('[') && host.ends_with(']'))
    {
        return ConsistsOf(host.substr(1, host.size() - 2), {kDigits, "abcdef:."}) &&
               host.find(':') != std::string_view::npos;
    }
    return !host.empty() && !host.starts_with('-') && !host.starts_with('.') &&
           ConsistsOf(host, {kLetters, kDigits, "-._"});
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
    return authority.find(' ') == std::string_view::npos && IsHost(server.substr(0, colon)) &&
           (!hasPort || IsPort(server.substr(colon + 1)));
}

bool HasForbiddenCharacter(std::string_view text)
{
    static constexpr std::string_view kForbidden = "\"<>\\^`{|}\x7f";
    return std::any_of(text.begin(), text.end(), [](char c) {
        return static_cast<unsigned char>(c) < ' ' || kForbidden.find(c) != kForbidden.npos;
    });
}

bool StartsWithScheme(std::string_view text, std::string_view prefix)
{
    return text.size() > prefix.size() &&
           std::equal(prefix.begin(), prefix.end(), text.begin(),
                      [](char wanted, char given) { return wanted == Lower(given); });
}

} // namespace

std::optional<WebAddress> ParseWebAddress(std::string_view text)
{
    const auto* const known =
        std::find_if(kSchemes.begin(), kSchemes.end(), [text](const Scheme& scheme) {
            return StartsWithScheme(text, scheme.prefix);
        });
    if (known == kSchemes.end() || HasForbiddenCharacter(text))
    {
        return std::nullopt;
    }
    const std::size_t host = known->prefix.size();
    if (!IsAuthority(text.substr(host, text.find_first_of("/?#", host) - host)))
    {
        return std::nullopt;
    }
    WebAddress address{known->scheme, {}};
    for (const char c : text)
    {
        address.text += c == ' ' ? std::string("%20") : std::string(1, c);
    }
    return address;
}

} // namespace velmo::platform
