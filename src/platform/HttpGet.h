#pragma once

#include "platform/Result.h"

#include <chrono>
#include <cstdint>
#include <functional>
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
    std::chrono::milliseconds wholeTimeout = std::chrono::hours(24); ///< For all of it.
    int mostRedirects = 5; ///< From https to http none at all.
};

/// Takes the next bytes of a response, on the thread that runs HttpGet(). An error ends the transfer
/// with that error.
using ByteSink = std::function<Result<Done>(std::span<const std::byte> bytes)>;

/**
    Reads one http or https address past every cache, with the desktop's own proxy settings (Windows)
    or the environment's (native). Blocks; any thread. A stop request ends it within a second.

    Errors, the same on both systems, are the internet's of ErrorCode.h and kTooLarge (more than
    mostBytes). kServerSaysWhy: the server answered with a status other than 200 or "not found", which
    the description gives, e.g. "500 Internal Server Error", in valid UTF-8 without control characters;
    kNotOnServer: 404 or 410; kEndedTooEarly:
    also fewer bytes than announced; kNoHttp: also nothing at all before the connection's end,
    and a body in an encoding, since none is asked for;
    kBadRedirect: too many, or one from https to http. Other descriptions are this program's own.

    One thing goes unnoticed on Windows: that an answer of unannounced length was cut short.
 */
[[nodiscard]] Result<Done> HttpGet(const std::string& url, const HttpLimits& limits,
                                   const ByteSink& sink, std::stop_token stop = {});

} // namespace velmo::platform
