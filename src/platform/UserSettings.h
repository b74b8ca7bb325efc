#pragma once

#include "platform/Profile.h"
#include "platform/Result.h"

#include <optional>
#include <string>
#include <string_view>

/**
    Per-user settings by application, section and key, shared with the vendor's other programs:
    on Windows the registry key `Software\VB and VBA Program Settings\<application>\<section>` of the
    current user, in the native build the file `user-settings.ini` in the desktop root. Names are
    compared without regard to case. Values are text; blanks and quotes survive. Any thread.
 */
namespace velmo::platform
{

/// The value, or nothing when it is absent or no text.
[[nodiscard]] std::optional<std::string> ReadUserSetting(std::string_view application,
                                                         std::string_view section,
                                                         std::string_view key);

/// All values of a section, read once: a profile of that one section, by the name that is given.
[[nodiscard]] Profile ReadUserSettings(std::string_view application, std::string_view section);

/// Writes a value. Error 5 when the user may not write there; natively also those of MFile.h, and 87 for
/// names and values that would read back as something else (line breaks, "=" in a key, "]" in a
/// section).
Result<Done> WriteUserSetting(std::string_view application, std::string_view section,
                              std::string_view key, std::string_view value);

} // namespace velmo::platform
