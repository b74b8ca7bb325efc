#pragma once

#include "platform/ByteStore.h"
#include "platform/HttpGet.h"
#include "platform/MessageLoop.h"
#include "platform/Result.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <limits>
#include <memory>
#include <span>
#include <string>
#include <thread>

namespace velmo::platform
{

/// Milliseconds since some start, wrapping round at 2^32. Called on any thread.
using TickSource = std::function<std::uint32_t()>;

/// The usual tick source: a clock that no change of the time of day moves.
[[nodiscard]] std::uint32_t SteadyTicks();

/**
    One read of a web address into memory, on a thread of its own, that tells how it goes through the
    message loop. It starts when it is made. Everything here is for the loop's thread; the loop and
    the listener outlive it. What has arrived stays in one place, so that telling of it copies nothing.
 */
class AsyncRead
{
  public:
    /// The most that can be read: counts of bytes are 32-bit signed.
    static constexpr std::uint64_t kMostBytes = std::numeric_limits<std::int32_t>::max();

    class Listener
    {
      public:
        virtual ~Listener() = default;

        /// The first @a count bytes are there. At most 20 times a second, by the tick source.
        virtual void ReadProgress(std::size_t count) = 0;

        /// The read has ended, well with all of its @a count bytes, or not. Last call; the listener may
        /// destroy the read in it.
        virtual void ReadComplete(std::size_t count, const Result<Done>& outcome) = 0;
    };

    /// Errors are HttpGet()'s; 223 also when a file is larger than kMostBytes, 8 out of memory.
    AsyncRead(MessageLoop& loop, std::string url, const HttpLimits& limits, Listener& listener,
              TickSource ticks = SteadyTicks);

    /// Ends the read; the listener hears no more of it. Waits for the thread, a moment at most.
    ~AsyncRead();

    /// Asks for the read's end and returns at once; completion follows with 12017, or with what had
    /// happened before.
    void Cancel();

    /// The bytes that the listener was told of, valid as long as somebody holds them.
    [[nodiscard]] std::shared_ptr<const ByteStore> Bytes() const;

  private:
    struct State;

    std::shared_ptr<State> m_state;
    std::jthread m_worker;
};

} // namespace velmo::platform
