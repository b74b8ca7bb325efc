#pragma once

#include <string>
#include <string_view>

/// The vendor's common folder and what the programs share by it. Any thread.
namespace velmo
{

inline constexpr std::string_view kVendorSection = "Velmo Software";     ///< In "Win.ini".
inline constexpr std::string_view kVendorApplication = "Velmo Software"; ///< Per-user settings.
inline constexpr std::string_view kFolderSection = "Program Folders";    ///< Per-user settings.

/// Path of "Win.ini" in the Windows directory.
[[nodiscard]] std::string WinIniPath();

/// A shared value by its name: from "Win.ini", else from the per-user settings, else empty.
[[nodiscard]] std::string SharedValue(std::string_view name);

/// @a folder with a "\" at its end ("\" for an empty one).
[[nodiscard]] std::string WithBackslash(std::string folder);

/// The vendor's common folder, ending in "\"; a lone "\" when none is known.
[[nodiscard]] std::string CommonFolder();

/// Path of the application settings file `VelmoUpd.ini` in the common folder.
[[nodiscard]] std::string SettingsFilePath();

/// Path of the diagnostic log in the common folder; empty when no common folder is known.
[[nodiscard]] std::string LogFilePath();

} // namespace velmo
