#pragma once

#include <chrono>
#include <optional>
#include <string>

/// What Windows itself makes of something that the program reads on its own. Windows build only.
namespace velmo::test
{

/// What Windows' own parser makes of an ASCII text in the United States' locale: seconds since the
/// start of December 30, 1899.
[[nodiscard]] std::optional<std::chrono::seconds> SystemParsedDate(const std::string& text);

/// The bytes of a value that version.dll finds in a file (@a path is UTF-8) by its ANSI functions, such as
/// "\\VarFileInfo\\Translation"; empty for no such value, absent without a version resource.
[[nodiscard]] std::optional<std::string> AskVersionDll(const std::string& path,
                                                       const std::string& block);

} // namespace velmo::test
