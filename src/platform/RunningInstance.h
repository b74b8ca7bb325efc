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
    first instance is asked to come forward.
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

    /// In the first instance: what to do when another instance asks it to come forward. Called on the
    /// loop; never on Windows, where the system does it. @a comeForward answers whether there is a
    /// window to bring forward. Both must outlive this object.
    void Listen(MessageLoop& loop, std::function<bool()> comeForward);

  private:
    struct State;
    std::unique_ptr<State> m_state;
};

} // namespace velmo::platform
