#pragma once

#include <string_view>

/// Where the main window keeps its own settings in the settings file.
namespace velmo
{

inline constexpr std::string_view kMainWindowSection = "Main Window"; ///< Placement and splitter.
inline constexpr std::string_view kSliderTopKey = "SliderTopPrograms";
/// The same position when nobody put the bar there: it still follows the window's size.
inline constexpr std::string_view kSliderDesignKey = "SliderTopDesign";
inline constexpr std::string_view kProgramListSection = "Program List";     ///< Sort and widths.
inline constexpr std::string_view kEquipmentGridSection = "Equipment Grid"; ///< Hidden columns.

} // namespace velmo
