#pragma once

#include "access/AccessFormat.h"
#include "text/ByteView.h"

#include <string>
#include <string_view>

namespace velmo
{

/// UTF-8 of text as a row or a long-value page stores it: ANSI in Access 97 (the machine's code
/// page is taken for the file's), UTF-16 since, where it may be compressed.
[[nodiscard]] std::string AccessText(ByteView stored, const JetFormat& format);

/// Whether a stored name of a table or column is @a name, which is ASCII, in any case.
[[nodiscard]] bool IsAccessName(ByteView stored, std::string_view name, const JetFormat& format);

} // namespace velmo
