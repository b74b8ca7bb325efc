#pragma once

#include "platform/MessageLoop.h"

#include <condition_variable>
#include <map>
#include <mutex>
#include <vector>

namespace velmo::platform
{

/// The message loop of a program without windows: a queue and timers. Its thread is the one that
/// yields or waits.
class HeadlessLoop final : public MessageLoop
{
  public:
    void Post(std::function<void()> work) override;
    void Yield() override;
    void WaitAndYield(std::chrono::milliseconds longest) override;
    void After(std::chrono::milliseconds delay, std::function<void()> work) override;

  private:
    using Clock = std::chrono::steady_clock;

    /// Everything due now, taken out of the queue and the timers.
    std::vector<std::function<void()>> TakeDue();

    std::mutex m_mutex;
    std::condition_variable m_arrived;
    std::vector<std::function<void()>> m_queue;
    std::multimap<Clock::time_point, std::function<void()>> m_timers;
};

} // namespace velmo::platform
