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

    On Windows a named mutex, and the first instance's window is found and brought forward from
    outside; in the native build a lock file in the desktop root, and a local socket through which the
    first instance is asked to come forward (InstanceListener).
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
    /// when it is minimised. False when there is no such window.
    bool BringPreviousForward(std::string_view caption, std::string_view className) const;

  private:
    struct State;
    std::unique_ptr<State> m_state;
};

/**
    What the first instance does when another one asks it to come forward. Does nothing on Windows,
    where the system brings its window forward. User-interface thread.
 */
class InstanceListener
{
  public:
    /// @a comeForward is called on the loop and answers whether there was a window to bring forward.
    /// It
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
