#pragma once

#include <string>
#include <string_view>

namespace velmo
{

class DiagnosticLog;

/// Where the vendor's addresses point: scheme and host (and port), without a trailing "/".
struct VendorServer
{
    std::string webServer;
    std::string secondDemoServer; ///< The host of the one demo setup that lies apart.

    /// The address of a path on the web server; empty for an empty path.
    [[nodiscard]] std::string Address(std::string_view path) const;
};

/**
    The servers that this build was made for, unless the machine's policy "WebServer" names another
    web server (an office's mirror). A policy that is no http or https address is ignored with a line
    in the log.
 */
[[nodiscard]] VendorServer ConfiguredServer(DiagnosticLog& log);

} // namespace velmo
