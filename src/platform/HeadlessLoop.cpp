#include "platform/HeadlessLoop.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace velmo::platform
{

void HeadlessLoop::Post(std::function<void()> work)
{
    {
        const std::lock_guard lock(m_mutex);
        m_queue.push_back(std::move(work));
    }
    m_arrived.notify_one();
}

void HeadlessLoop::After(std::chrono::milliseconds delay, std::function<void()> work)
{
    const std::lock_guard lock(m_mutex);
    m_timers.emplace(Clock::now() + delay, std::move(work));
}

void HeadlessLoop::Yield()
{
    for (auto& work : TakeDue())
    {
        work();
    }
}

void HeadlessLoop::WaitAndYield(std::chrono::milliseconds longest)
{
    {
        std::unique_lock lock(m_mutex);
        auto until = Clock::now() + longest;
        if (!m_timers.empty())
        {
            until = std::min(until, m_timers.begin()->first);
        }
        m_arrived.wait_until(lock, until, [this] { return !m_queue.empty(); });
    }
    Yield();
}

std::vector<std::function<void()>> HeadlessLoop::TakeDue()
{
    const std::lock_guard lock(m_mutex);
    std::vector<std::function<void()>> due = std::exchange(m_queue, {});
    const auto end = m_timers.upper_bound(Clock::now());
    std::transform(m_timers.begin(), end, std::back_inserter(due),
                   [](auto& timer) { return std::move(timer.second); });
    m_timers.erase(m_timers.begin(), end);
    return due;
}

} // namespace velmo::platform
