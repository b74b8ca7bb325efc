#pragma once

#include "equipment/AccessFormat.h"
#include "equipment/ByteView.h"

#include <string>
#include <string_view>

namespace velmo
{

/// UTF-8 of text as a row or a long-value page stores it: ANSI in Access 97 (the machine's code page
/// is taken for the file's), UTF-16 since, where it may be compressed.
[[nodiscard]] std::string AccessText(ByteView stored, const JetFormat& format);

/// UTF-8 of a name in a table definition: as text, but never compressed.
[[nodiscard]] std::string AccessName(ByteView stored, const JetFormat& format);

/// Whether two names of tables or fields are the same for Access. Only the letters A to Z are
/// compared without regard to case; the names that the program asks for have no others.
[[nodiscard]] bool IsSameAccessName(std::string_view a, std::string_view b);

} // namespace velmo
