#pragma once

#include "platform/MFile.h"
#include "platform/Result.h"

#include <filesystem>
#include <functional>
#include <string>
#include <string_view>

namespace velmo::platform
{

/// Writes all bytes to an open file, whatever the system takes at once. Errno-style result: 0 when done.
[[nodiscard]] int WriteBytes(int descriptor, std::string_view bytes);

/// Puts a file with these bytes in the place of @a path: whoever reads sees the old or the new one,
/// also after a power cut if it is a lasting one. Keeps the old file's mode.
[[nodiscard]] Result<Done> ReplaceFile(const std::filesystem::path& path, std::string_view bytes,
                                       MFile::Keeping keeping);

/// Reads the file (a missing one is empty), lets @a edit make its new bytes and puts them in its
/// place, with every other EditFile() in this folder held back meanwhile. Bytes that stay the same are
/// not written. Error 3 when there is no such folder.
[[nodiscard]] Result<Done> EditFile(const std::filesystem::path& path,
                                    const std::function<std::string(std::string_view)>& edit);

} // namespace velmo::platform
