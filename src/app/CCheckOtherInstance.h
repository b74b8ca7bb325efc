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

/// Lets only one instance of the program run. Lives as long as the program. User-interface thread.
class CCheckOtherInstance
{
  public:
    CCheckOtherInstance();

    /// True when another instance runs already; its window of that caption and class has then been
    /// brought forward. An instance that has no window yet is left alone.
    bool OtherInstanceRuns(std::string_view caption, std::string_view className);

  private:
    platform::RunningInstance m_instance;
};

} // namespace velmo
