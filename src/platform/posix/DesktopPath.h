#pragma once

#include <filesystem>
#include <string_view>

namespace velmo::platform
{

/// The desktop root: $VELMO_HOME, else "velmo-update-manager" in the user's data home. Asked anew at
/// each call.
[[nodiscard]] std::filesystem::path DesktopRoot();

/**
    The native path of a Windows path. Each part that exists in another case is found by a look at its
    folder's names; a part that does not exist keeps its spelling.
    ".." never leads out of the drive. A path that starts with "/" is native already.
 */
[[nodiscard]] std::filesystem::path NativePath(std::string_view windowsPath);

} // namespace velmo::platform
