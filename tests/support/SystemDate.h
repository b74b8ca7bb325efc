#pragma once

#include <chrono>
#include <optional>
#include <string>

namespace velmo::test
{

/// What Windows' own parser makes of an ASCII text in the United States' locale: seconds since the
/// start of December 30, 1899. Windows build only.
[[nodiscard]] std::optional<std::chrono::seconds> SystemParsedDate(const std::string& text);

} // namespace velmo::test
