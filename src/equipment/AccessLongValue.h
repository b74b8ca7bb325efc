#pragma once

#include "equipment/AccessPages.h"

#include <string>

namespace velmo
{

/// UTF-8 of a memo, of which a row holds a head of 12 bytes: the text follows it, or lies in one
/// row of a page of its own, or in a chain of such rows.
[[nodiscard]] Result<std::string> AccessLongText(AccessPages& pages, ByteView stored);

} // namespace velmo
