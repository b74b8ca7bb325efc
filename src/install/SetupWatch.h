#pragma once

#include "platform/Processes.h"

#include <chrono>
#include <functional>
#include <memory>
#include <vector>

namespace velmo
{
namespace platform
{
class MessageLoop;
}

/**
    Waits in the background until setups that were started have ended, but not for ever: then what is
    installed can be looked at. The loop runs meanwhile. User-interface thread.
 */
class SetupWatch
{
  public:
    static constexpr std::chrono::milliseconds kLongest{std::chrono::minutes(15)};

    /// @a ended is called through the loop once for each Watch() that is not replaced or stopped before;
    /// never after the watch has gone. @a loop outlives the watch and what it posted.
    SetupWatch(platform::MessageLoop& loop, std::function<void()> ended,
               std::chrono::milliseconds longest = kLongest);
    ~SetupWatch();

    /// Waits for these and for those of an earlier call that still run.
    void Watch(const std::vector<platform::StartedProgram>& setups);

    /// Calls nobody until the next Watch(), which also waits for what was watched so far.
    void Stop();

  private:
    struct Round;
    static void Look(const std::shared_ptr<Round>& round);

    platform::MessageLoop& m_loop;
    std::function<void()> m_ended;
    std::chrono::milliseconds m_longest;
    std::vector<platform::StartedProgram> m_setups;
    std::shared_ptr<Round> m_round; ///< The one that is being waited for, if any.
};

} // namespace velmo
