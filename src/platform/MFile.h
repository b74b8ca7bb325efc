#pragma once

#include "platform/Result.h"

#include <chrono>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

/**
    Files and folders. Paths are Windows paths ("C:\Velmo\Common\x.ini") on every system; the native
    build keeps them below the desktop root (DesktopFolders.h), case-insensitively, and takes a path
    that starts with "/" as one of its own system. Relative paths are relative to the current folder
    (native: to drive C:'s root). Any thread.

    Error codes are Windows' numbers: 2 file missing, 3 folder missing, 5 refused, 32 in use,
    112 disk full.
 */
namespace velmo::platform::MFile
{

using Time = std::chrono::system_clock::time_point;

/// True for an existing file. An empty path or one that ends in ":" is no file, nor is a folder.
[[nodiscard]] bool FileExists(std::string_view path);

/// True for an existing folder; a trailing "\" does not matter.
[[nodiscard]] bool FolderExists(std::string_view path);

/// True when the path itself is a link (or junction) to somewhere else, whatever is there.
[[nodiscard]] bool IsLink(std::string_view path);

/// When the file was last written. Error 2 or 3 when there is none.
[[nodiscard]] Result<Time> ModificationTime(std::string_view path);

/// Sets when the file was last written.
Result<Done> SetModificationTime(std::string_view path, Time time);

/// The absolute form of a path, as GetFullPathName forms it; empty when it has none.
[[nodiscard]] std::string FullPath(std::string_view path);

/// A path that a person typed on the command line, as these functions take it: on Windows as it is,
/// natively a path of the system becomes absolute and a Windows path ("C:\...") stays.
[[nodiscard]] std::string FromCommandLine(std::string_view argument);

/// All bytes of a file that other programs may have open. A file of more than @a most bytes is
/// error 223 (too large) and is not read.
[[nodiscard]] Result<std::string> ReadAll(std::string_view path, std::uint64_t most = 1U << 30);

/// Whether a file has to survive a power failure, for which the disk is waited for.
enum class Keeping
{
    Lasting,
    Passing, ///< It goes with the program run.
};

/// Writes the file as a whole: a new file beside it first ("<path>.new"), then in its place, so that
/// a failure leaves the old one as it was and no reader sees half a file. Writers of one file wait for
/// one another, in whatever process they are; error 33 when that takes more than ten seconds. Where
/// the path is a link, the file that it leads to is written; a read-only one is error 5.
Result<Done> WriteAll(std::string_view path, std::string_view bytes,
                      Keeping keeping = Keeping::Lasting);

/// Writes what @a edit makes of the file's bytes (none when it is missing), as WriteAll() does, with
/// all other writers held back from the reading on. Bytes that stay the same are not written, but a
/// missing file is made; a file
/// that cannot be read is left as it is, with the reason as the error.
Result<Done> Edit(std::string_view path, const std::function<std::string(std::string_view)>& edit);

/// Adds bytes at the file's end, creating it when needed.
Result<Done> Append(std::string_view path, std::string_view bytes);

/// Deletes the file when it exists; a missing file is no error.
Result<Done> DeleteIfExists(std::string_view path);

/// Gives a file another name in the same folder, replacing a file of that name.
Result<Done> Rename(std::string_view from, std::string_view to);

/// Creates the folder and those above it; an existing folder is no error.
Result<Done> CreateFolders(std::string_view path);

/// Removes an empty folder; a missing one is no error. Of a link to a folder only the link goes.
Result<Done> RemoveFolder(std::string_view path);

/// Names (no paths) of the files in a folder, in no particular order; sub-folders are left out. Error 3
/// when there is no such folder, 267 when it is a file.
[[nodiscard]] Result<std::vector<std::string>> FileNames(std::string_view folder);

/// The same of the sub-folders, links to folders among them.
[[nodiscard]] Result<std::vector<std::string>> FolderNames(std::string_view folder);

} // namespace velmo::platform::MFile
