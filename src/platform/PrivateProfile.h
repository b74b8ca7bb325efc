#pragma once

#include "platform/Profile.h"
#include "platform/Result.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

/**
    The private-profile functions: values by file, section and key in files of the form

        [Section]
        Key=Value

    By the rules of Windows' functions of these names (blanks round names and values dropped, one pair
    of outer quotes stripped from a value, ";" at a line's start is a comment, names without regard to
    case, the first of equal names wins), with no line changed but the one that is written. On Windows
    "Win.ini" alone goes through Windows' own functions (SystemProfile.h), since programs of others
    share it. A file name without a folder means the Windows directory. Text is UTF-8 here, ANSI (or
    UTF-16 with a byte-order mark) in the file. Any thread; files are written as a whole, as
    MFile::Edit() does.
 */
namespace velmo::platform
{

/// The whole file, read once. Empty when there is none or none is named. Errors: MFile::ReadAll()'s of
/// a file that is there.
[[nodiscard]] Result<Profile> ReadProfile(std::string_view file);

/// One section, on Windows through Windows' own function, which knows no error, if the file is
/// "Win.ini", whose sections the system may keep elsewhere; else all of ReadProfile().
[[nodiscard]] Result<Profile> ReadProfileSection(std::string_view file, std::string_view section);

/// The value, cut to @a bufferSize - 1 characters; @a defaultText (trailing blanks cut) when the file,
/// the section or the key is missing or the file cannot be read. Reads the file.
[[nodiscard]] std::string GetPrivateProfileText(std::string_view section, std::string_view key,
                                                std::string_view defaultText,
                                                std::size_t bufferSize, std::string_view file);

/// The same of a profile that was read before.
[[nodiscard]] std::string GetPrivateProfileText(std::string_view section, std::string_view key,
                                                std::string_view defaultText,
                                                std::size_t bufferSize, const Profile& profile);

/// The section's lines without comments and empty lines, each ended by a NUL, blanks trimmed; cut to
/// @a bufferSize - 2 characters. Empty when there is none.
[[nodiscard]] std::string GetPrivateProfileSectionBlock(std::string_view section,
                                                        std::size_t bufferSize,
                                                        const Profile& profile);

/// Writes a value; without a value deletes the key; without a key deletes the section. Creates the
/// file but no folder. Errors: MFile::Edit()'s, 2 when no file is named, 87 for a CR, LF or NUL in a
/// name or value, which would become lines of their own; of "Win.ini" Windows' own.
Result<Done> WritePrivateProfileText(std::string_view section, std::optional<std::string_view> key,
                                     std::optional<std::string_view> value, std::string_view file);

/// Replaces the section's lines by those of @a block (each ended by a NUL). Errors as for a value; 87
/// for a CR or LF in the block.
Result<Done> WritePrivateProfileSectionBlock(std::string_view section, std::string_view block,
                                             std::string_view file);

} // namespace velmo::platform
