#pragma once

#include "platform/MFile.h"
#include "platform/OpenFile.h"

#include <string_view>

/// The system's part of MFile::WriteAll(), whose new bytes gather in "<path>.new". The caller holds the
/// SharedLock of @a path.
namespace velmo::platform
{

/// The path that is written when @a path is: where a link leads, be it to a file or to nothing yet.
[[nodiscard]] std::string WrittenPath(std::string_view path);

/// Opens "<path>.new" anew, whatever a killed writer left there, with the mode of the file at @a path. Error 5 when
/// that is read-only or no file: what a person protected is not replaced.
[[nodiscard]] Result<OpenFile> OpenBeside(std::string_view path);

/// Gives the file beside the place and the name of @a path.
[[nodiscard]] Result<Done> PutInPlace(std::string_view path, MFile::Keeping keeping);

} // namespace velmo::platform
