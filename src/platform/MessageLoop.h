#pragma once

#include <chrono>
#include <functional>

namespace velmo::platform
{

/**
    The one user-interface thread's message loop, without a toolkit: the window program's loop is the
    toolkit's, the headless program's is HeadlessLoop. Everything but Post() is for the loop's own
    thread. Work must not throw.
 */
class MessageLoop
{
  public:
    virtual ~MessageLoop() = default;

    /// Queues work for the loop's thread, in order. Any thread.
    virtual void Post(std::function<void()> work) = 0;

    /// Handles everything that waits at this moment and returns.
    virtual void Yield() = 0;

    /// Sleeps until something arrives, @a longest at most, then yields.
    virtual void WaitAndYield(std::chrono::milliseconds longest) = 0;

    /// Runs @a work once, after @a delay.
    virtual void After(std::chrono::milliseconds delay, std::function<void()> work) = 0;

    /// Keeps the loop alive until @a done says so.
    template <typename Predicate>
    void RunUntil(Predicate done)
    {
        while (!done())
        {
            WaitAndYield(std::chrono::milliseconds(50));
        }
    }
};

} // namespace velmo::platform
