#pragma once

#include <string_view>

/// Where the main window keeps its own settings in the settings file.
namespace velmo
{

inline constexpr std::string_view kMainWindowSection = "Main Window"; ///< Placement and splitter.
inline constexpr std::string_view kSliderTopKey = "SliderTopPrograms";
inline constexpr std::string_view kProgramListSection = "Program List"; ///< Sort and widths.

} // namespace velmo
