#pragma once

#include "platform/Profile.h"
#include "platform/Result.h"

#include <optional>
#include <string_view>

namespace velmo::platform
{

/// Windows' own private-profile functions, by which "Win.ini" is shared with the programs of others.
/// The arguments are checked before: a file is named with its folder, no text has line breaks. Any
/// thread.
struct SystemProfile
{
    Profile (*readSection)(std::string_view section, std::string_view file);

    /// Without a value deletes the key, without a key the section. Errors are Windows' own: 2, 3 or 5
    /// where the Windows directory may not be written, which is usual.
    Result<Done> (*writeText)(std::string_view section, std::optional<std::string_view> key,
                              std::optional<std::string_view> value, std::string_view file);

    /// @a block has the section's new lines, each ended by a NUL.
    Result<Done> (*writeSection)(std::string_view section, std::string_view block,
                                 std::string_view file);
};

/// The functions; nullptr in the native build, whose "Win.ini" is a file like any other.
[[nodiscard]] const SystemProfile* TheSystemsProfile();

} // namespace velmo::platform
