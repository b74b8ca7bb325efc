#pragma once

#include "platform/HttpGet.h"
#include "platform/MessageLoop.h"
#include "platform/Result.h"

#include <chrono>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>

namespace velmo::platform
{
class AsyncRead;
}

namespace velmo
{

/// The largest list that the program takes, from the server or from a file.
inline constexpr std::uint64_t kMostBytesOfAList = 16U << 20;

inline constexpr std::chrono::seconds kTimeForAList{60};

/**
    Downloads a web address into memory or into a file, always anew from the server. A call returns when
    that is done, but the message loop runs meanwhile, so that windows stay alive: the caller sees to
    it that nothing started from the loop comes back here. For the loop's thread; the loop outlives it.

    Errors are HttpGet()'s, and error_code::kInvalidData for an empty file, which no list is. Unless told
    otherwise a list may have kMostBytesOfAList and take kTimeForAList in all.
 */
class UrlToFile
{
  public:
    using Clock = std::function<std::chrono::steady_clock::time_point()>;

    explicit UrlToFile(platform::MessageLoop& loop,
                       const platform::HttpLimits& limits = {.mostBytes = kMostBytesOfAList,
                                                             .wholeTimeout = kTimeForAList},
                       Clock now = std::chrono::steady_clock::now);

    /// All bytes of @a url.
    [[nodiscard]] Result<std::string> Read(const std::string& url);

    /// Reads @a url and writes it as the file @a path (a Windows path), replacing one of that name as a
    /// whole, and gives its bytes; a failure, also the system's when it cannot be written, leaves that
    /// one as it was.
    [[nodiscard]] Result<std::string> Download(const std::string& url, const std::string& path);

    /// From @a end on, a running download is given up, with error_code::kTimedOut, and none is started.
    void EndBy(std::chrono::steady_clock::time_point end) { m_end = end; }

    /// Ends a running download, with error_code::kCancelled.
    void Cancel();

  private:
    platform::MessageLoop& m_loop;
    platform::HttpLimits m_limits;
    Clock m_now;
    std::optional<std::chrono::steady_clock::time_point> m_end;
    platform::AsyncRead* m_running = nullptr;
};

} // namespace velmo
