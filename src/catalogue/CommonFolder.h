#pragma once

#include "settings/SettingsSnapshot.h"

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

/// @a folder with a "\" at its end ("\" for an empty one).
[[nodiscard]] std::string WithBackslash(std::string folder);

/// What the programs share by name, as both stores had it at one moment: for many questions after one
/// reading. A value; copies are cheap.
class SharedValues
{
  public:
    /// Reads both stores, once each.
    [[nodiscard]] static SharedValues Read();

    /// From "Win.ini", else from the per-user settings, else empty.
    [[nodiscard]] std::string Value(std::string_view name) const;

    /// The vendor's common folder, ending in "\"; a lone "\" when none is known.
    [[nodiscard]] std::string CommonFolder() const;

    /// Path of the application settings file `VelmoUpd.ini` in the common folder.
    [[nodiscard]] std::string SettingsFilePath() const;

    /// Path of the diagnostic log in the common folder; empty when no common folder is known.
    [[nodiscard]] std::string LogFilePath() const;

  private:
    SettingsSnapshot m_winIni;
    platform::Profile m_userSettings;
};

/// The same of the stores as they are now.
[[nodiscard]] std::string CommonFolder();
[[nodiscard]] std::string SettingsFilePath();
[[nodiscard]] std::string LogFilePath();

} // namespace velmo
