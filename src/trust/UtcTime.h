#pragma once

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

namespace velmo
{

/// Reads "2026-11-23T07:59:13Z", nothing but this form; nothing for a day or a time that does not exist.
/// Any thread.
[[nodiscard]] std::optional<std::chrono::sys_seconds> ParseUtcTime(std::string_view text);

/// The same form. Years 0 to 9999.
[[nodiscard]] std::string UtcTimeText(std::chrono::sys_seconds time);

} // namespace velmo
