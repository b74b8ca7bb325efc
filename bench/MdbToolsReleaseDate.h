#pragma once

#include <optional>
#include <string>

/// What mdbtools' library reads of a database's release date; empty when it reads nothing. Nothing
/// at all in a build without the library.
[[nodiscard]] std::optional<std::string> MdbToolsReleaseDate(const std::string& path);
