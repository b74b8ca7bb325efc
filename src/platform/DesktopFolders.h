#pragma once

#include <string>

/**
    The folders of the desktop that the program runs on, as Windows paths ending in "\".

    In the native build a whole desktop lives in the folder that the environment variable VELMO_HOME
    names (default: "velmo-update-manager" in the user's data home): `C:\x` is the file
    `$VELMO_HOME/drive_c/x`, and other drives likewise. Any thread.
 */
namespace velmo::platform
{

/// The Windows directory, where "Win.ini" and profile files without a folder live.
[[nodiscard]] std::string WindowsDirectory();

/// The folder of the running executable. In the native build, an executable that lies outside the
/// desktop counts as installed in "C:\Program Files\Velmo Software\Update Manager\".
[[nodiscard]] std::string ProgramFolder();

/// Path of the running executable, to read it; in the native build a path of the system's own that
/// leads there even when the file has been deleted by now.
[[nodiscard]] std::string ProgramPath();

} // namespace velmo::platform
