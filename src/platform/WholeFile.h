#pragma once

#include "platform/MFile.h"
#include "platform/OpenFile.h"

#include <string_view>

/// The system's part of MFile::WriteAll() and MFile::Edit(), whose new bytes gather in "<path>.new". But
/// for WrittenPath() the caller holds the SharedLock of @a path, which is a written path.
namespace velmo::platform
{

/// The path that is written when @a path is: where a link leads, natively also one to nothing yet; a
/// system's own path then.
[[nodiscard]] std::string WrittenPath(std::string_view path);

/// Opens "<path>.new" anew, whatever a killed writer left there; natively with the mode of the file at
/// @a path. Error 5 when that is read-only or no file: what a person protected is not replaced.
[[nodiscard]] Result<OpenFile> OpenBeside(std::string_view path);

/// Gives the file beside the place and the name of @a path, on Windows as soon as nobody reads the old
/// one, for 5 seconds at most. When it is to last, its name is on the disk too then.
[[nodiscard]] Result<Done> PutInPlace(std::string_view path, MFile::Keeping keeping);

} // namespace velmo::platform
