#pragma once

#include <string>
#include <string_view>

/// Case and blanks of names: letters A to Z only, since names of sections, keys and programs are
/// compared the same on every machine. Any thread.
namespace velmo
{

[[nodiscard]] std::string UpperCase(std::string_view text);
[[nodiscard]] std::string LowerCase(std::string_view text);

/// Without the blanks (spaces only) at both ends.
[[nodiscard]] std::string_view Trimmed(std::string_view text);

} // namespace velmo
