#pragma once

#include "platform/HttpGet.h"
#include "platform/MessageLoop.h"
#include "platform/Result.h"

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>

namespace velmo
{

/**
    Downloads a web address into a file, always anew from the server. The call returns when that is
    done, but the message loop runs meanwhile, so that windows stay alive: the caller sees to it that
    nothing started from the loop comes back here. For the loop's thread; the loop outlives it.
 */
class UrlToFile
{
  public:
    static constexpr std::uint64_t kMostBytesOfAList = 4U << 20;

    /// @a mostBytes: a larger file is error 223. The time limits are those of HttpLimits.
    explicit UrlToFile(platform::MessageLoop& loop, std::uint64_t mostBytes = kMostBytesOfAList);
    UrlToFile(platform::MessageLoop& loop, const platform::HttpLimits& limits);

    /// Downloads @a url and writes it as the file @a path (a Windows path), replacing one of that name
    /// as a whole; a failure leaves that one as it was. True when it worked.
    [[nodiscard]] bool Download(const std::string& url, const std::string& path);

    /// From @a end on, a running download is given up, with error 12002, and none is started.
    void EndBy(std::chrono::steady_clock::time_point end) { m_end = end; }

    /// Why the last download failed: the internet's code (platform/HttpGet.h), for 12003 with the
    /// server's answer as the description; or the system's when the file could not be written. Code 0
    /// after a success.
    [[nodiscard]] const Error& LastError() const { return m_lastError; }

  private:
    Result<Done> DownloadInTime(const std::string& url, const std::string& path);
    [[nodiscard]] bool TimeIsOver() const;

    platform::MessageLoop& m_loop;
    platform::HttpLimits m_limits;
    std::optional<std::chrono::steady_clock::time_point> m_end;
    Error m_lastError;
};

} // namespace velmo
