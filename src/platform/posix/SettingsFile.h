#pragma once

#include "platform/Result.h"

#include <optional>
#include <string>
#include <string_view>

/**
    The files in the desktop root that stand for the registry: sections and keys as in a profile file,
    in UTF-8, values in quotes where blanks or quotes at their ends must survive.
 */
namespace velmo::platform
{

/// The value, or nothing when it is absent.
[[nodiscard]] std::optional<std::string> ReadSettingsFile(const char* file,
                                                          std::string_view section,
                                                          std::string_view key);

/// Writes a value; without one deletes it. Error 87 for names and values that would read back as
/// something else: line breaks, "=" in a key, "]" in a section.
[[nodiscard]] Result<Done> WriteSettingsFile(const char* file, std::string_view section,
                                             std::string_view key,
                                             std::optional<std::string_view> value);

} // namespace velmo::platform
