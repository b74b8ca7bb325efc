#pragma once

#include "platform/MessageLoop.h"

#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace velmo::platform
{

/**
    The mark that one instance of this executable runs on the user's desktop. The first to claim the
    name is the first instance until it ends, however it ends. User-interface thread.

    On Windows a named mutex, and the first instance's main window is found and brought forward from
    outside; where it has none (it runs silently, or a question of it waits), and always in the native
    build, it is asked to come forward (InstanceListener), there through a named event, natively through
    a local socket. The native mark is a lock file in the desktop root.
 */
class RunningInstance
{
  public:
    /// Claims the name.
    explicit RunningInstance(std::string_view name);
    ~RunningInstance();
    RunningInstance(const RunningInstance&) = delete;
    RunningInstance& operator=(const RunningInstance&) = delete;

    /// True when another instance claimed the name before.
    [[nodiscard]] bool HasPrevious() const;

    /// In a later instance: brings the top-level window of that caption and class forward, restored
    /// when it is minimised, or the dialog that is open over it; without such a window asks the first
    /// instance to do as it sees fit. False when nobody listens, natively also when the answer is no or
    /// takes longer than five seconds.
    bool BringPreviousForward(std::string_view caption, std::string_view className) const;

  private:
    struct State;
    std::unique_ptr<State> m_state;
};

/// Asks whoever listens under the name to come forward (InstanceListener). False when nobody does, and
/// natively when the answer is no or takes longer than five seconds.
bool AskToComeForward(std::string_view name);

/**
    What the first instance does when another one asks it to come forward: a window raises itself, a
    question comes to the front, a silent run hands over to the main window. On Windows it is asked only
    while there is no main window to be seen. One listener of a name at a time. User-interface thread.
 */
class InstanceListener
{
  public:
    /// @a comeForward is called on the loop and answers whether there was anything to bring forward. It
    /// is copied on another thread. The loop must outlive the listener.
    InstanceListener(std::string_view name, MessageLoop& loop, std::function<bool()> comeForward);
    ~InstanceListener();
    InstanceListener(const InstanceListener&) = delete;
    InstanceListener& operator=(const InstanceListener&) = delete;

  private:
    struct State;
    std::unique_ptr<State> m_state;
};

} // namespace velmo::platform
