#pragma once

#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace velmo
{

/**
    Who wants to hear that something has changed. One thread; the called may add observers and end
    subscriptions, their own too.
 */
class Observers
{
  public:
    /// Keeps the observing up; may outlive what is observed.
    using Subscription = std::shared_ptr<const std::function<void()>>;

    [[nodiscard]] Subscription Add(std::function<void()> changed)
    {
        auto subscription = std::make_shared<const std::function<void()>>(std::move(changed));
        m_observers.push_back(subscription);
        return subscription;
    }

    /// Calls everybody, the first to be added first.
    void Tell()
    {
        std::erase_if(m_observers, [](const auto& observer) { return observer.expired(); });
        for (const auto& observer : std::vector(m_observers))
        {
            if (const Subscription called = observer.lock())
            {
                (*called)();
            }
        }
    }

  private:
    std::vector<std::weak_ptr<const std::function<void()>>> m_observers;
};

} // namespace velmo
