#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace velmo
{

enum class WebScheme
{
    Http,
    Https,
    Ftp,
};

/// An address of the web that may be given to a browser.
struct WebAddress
{
    WebScheme scheme = WebScheme::Http;
    std::string text; ///< As it was written, percent-encoded where an address has to be.
};

/// What the text begins with, in any case: "http://", "https://" or "ftp://"; nothing for any other.
[[nodiscard]] std::optional<WebScheme> WebSchemeOf(std::string_view text);

/**
    Reads an address, also one that came from a list: one of the schemes, a host (with a user before it
    or a port behind it), and whatever path. Blanks, quotes, "<", ">", "\", "^", "`", "{", "|", "}" and
    all but ASCII are encoded in path, query and fragment, so that a browser's command line has nothing
    to stumble over. Nothing for anything else, so also for such characters in the host, and for
    control characters. Pure; any thread.
 */
[[nodiscard]] std::optional<WebAddress> ParseWebAddress(std::string_view text);

} // namespace velmo
