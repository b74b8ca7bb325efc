#pragma once

#include "platform/RunningInstance.h"

#include <string_view>

namespace velmo
{

/// Class name and caption of the main window, by which other programs and a second start find it.
inline constexpr std::string_view kMainWindowClass = "ThunderRT6FormDC";
inline constexpr std::string_view kMainWindowCaption = "Velmo Software Update Manager";

/// The name that the first instance claims and listens under.
inline constexpr std::string_view kInstanceName = "VelmoUpdateManager";

/// The name that it listens under besides, from its start on, for somebody who starts it by hand: a
/// question comes to the front, a silent run opens the main window. Programs that start it silently
/// don't ask under it.
inline constexpr std::string_view kSilentInstanceName = "VelmoUpdateManager-silent";

/// Lets only one instance of the program run. Lives as long as the program. User-interface thread.
class CCheckOtherInstance
{
  public:
    CCheckOtherInstance();

    /// True when another instance runs already; its window of that caption and class has then been
    /// brought forward.
    bool OtherInstanceRuns(std::string_view caption, std::string_view className);

    /// Whether the other instance had a window to bring forward.
    [[nodiscard]] bool CameForward() const { return m_cameForward; }

  private:
    platform::RunningInstance m_instance;
    bool m_cameForward = false;
};

} // namespace velmo
