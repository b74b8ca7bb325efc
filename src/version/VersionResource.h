#pragma once

#include "platform/FileReader.h"

#include <optional>
#include <string>

namespace velmo
{

/**
    The bytes of an executable's version resource, at most 64 KiB; VersionInfoBlock takes them apart.
    Absent when the file is no Windows image of 16, 32 or 64 bits, has no such resource, or is damaged on
    the way to it.

    An image may hold several: the one of number 1 is taken, as Windows does (a 16-bit image's first), and
    of its languages the
    neutral one, else "English (United States)", else plain English, else the first. (Windows looks
    for the user's own language after the neutral one; the program wants the same answer for
    everybody.)

    Only the headers, the directories on the way and the resource itself are read, so that the file's
    size does not matter. Safe for any input. Any thread.
 */
[[nodiscard]] std::optional<std::string> ReadVersionResource(const platform::FileReader& file);

} // namespace velmo
