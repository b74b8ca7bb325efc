#pragma once

#include "platform/HttpGet.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <stop_token>
#include <string>

/**
    One request and its response, without following redirects: the part of HttpGet() that each system
    does its own way. For HttpGet() only.
 */
namespace velmo::platform
{

struct HttpHead
{
    int status = 0;
    std::string reason;                  ///< The status line's text, e.g. "Not Found": any bytes.
    std::string encoding;                ///< Of the body, e.g. "gzip"; empty when it has none.
    std::string location;                ///< Absolute address of a redirect, else empty.
    std::optional<std::uint64_t> length; ///< What the server announced.
};

/// When the whole of it has to be over; the limits' wholeTimeout counts from the first hop on.
using HopEnd = std::chrono::steady_clock::time_point;

/// Takes one response. Called on the thread that runs HttpHop().
class HopSink
{
  public:
    virtual ~HopSink() = default;

    /// The response's head, once, before any body. False: the body is not wanted.
    virtual bool Head(const HttpHead& head) = 0;

    /// The next bytes of the body. False: no more are wanted.
    virtual bool Add(std::span<const std::byte> bytes) = 0;
};

/**
    Sends the request and hands the response to @a sink. @a url is a well-formed http or https
    address of printable ASCII without fragment. Returns 0 when the response came to its end or the
    sink wanted no more of it, else the internet's code (see HttpGet.h). Whether all announced bytes
    have come is the caller's to check.
 */
[[nodiscard]] std::int32_t HttpHop(const std::string& url, const HttpLimits& limits, HopEnd end,
                                   HopSink& sink, const std::stop_token& stop);

} // namespace velmo::platform
