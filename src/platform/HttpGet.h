#pragma once

#include "platform/Result.h"

#include <chrono>
#include <cstdint>
#include <limits>
#include <span>
#include <stop_token>
#include <string>

namespace velmo::platform
{

struct HttpLimits
{
    std::chrono::milliseconds connectTimeout{10'000};
    std::chrono::milliseconds stallTimeout{30'000}; ///< Longest time without a single byte.
    std::uint64_t mostBytes = std::numeric_limits<std::uint64_t>::max();
    int mostRedirects = 5; ///< From https to http none at all.
};

/// Where the bytes of a response go. Called on the thread that runs HttpGet().
class ByteSink
{
  public:
    virtual ~ByteSink() = default;

    /// The length that the server announced, before the first bytes; not called when it did not.
    virtual void Expect(std::uint64_t bytes) = 0;

    /// The next bytes. An error ends the transfer with that error.
    virtual Result<Done> Add(std::span<const std::byte> bytes) = 0;
};

/**
    Reads one http or https address past every cache, with the desktop's own proxy settings (Windows)
    or the environment's (native). Blocks; any thread. A stop request ends it within a second.

    Errors carry the internet's codes, the same on both systems: 12002 timed out, 12003 the server
    answered with an error status other than "not found" (the description is its status line, e.g.
    "500 Internal Server Error"), 12005 no URL, 12006 neither http nor https, 12007 unknown host,
    12017 stopped, 12028 not found (404, 410), 12029 refused, 12030 ended too early or fewer bytes
    than announced, 12031 reset, 12152 no HTTP (or none at all before the connection's end), 12156 too many redirects or one from https to http,
    12157 no secure channel, 12045 certificate not trusted, 223 more than mostBytes. The description is
    this program's own, the same on both systems too.

    One thing goes unnoticed on Windows: that an answer of unannounced length was cut short.
 */
[[nodiscard]] Result<Done> HttpGet(const std::string& url, const HttpLimits& limits, ByteSink& sink,
                                   std::stop_token stop = {});

} // namespace velmo::platform
