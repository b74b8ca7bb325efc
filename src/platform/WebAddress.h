#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace velmo::platform
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
    std::string text; ///< As it was written, but for blanks in its path, which become "%20".
};

/**
    Reads an address that came from a list: "http://", "https://" or "ftp://" in any case, a host (with
    a user before it or a port behind it), and whatever path. Nothing for anything else, so also for
    control characters, quotes, "<", ">" and "\", which no address has and a browser's command line
    might stumble over. Pure; any thread.
 */
[[nodiscard]] std::optional<WebAddress> ParseWebAddress(std::string_view text);

} // namespace velmo::platform
