#pragma once

#include "equipment/AccessFormat.h"
#include "equipment/ByteView.h"

namespace velmo
{

/// How many bytes at the start of a file CheckAccessHeader() looks at.
inline constexpr std::size_t kAccessHeaderSize = 0x98;

/**
    Decides from a file's first bytes whether and how it can be read.

    Errors (AccessErrorCode): no Access file or of an unknown version; protected by a password;
    encoded or encrypted; damaged.
 */
[[nodiscard]] Result<const JetFormat*> CheckAccessHeader(ByteView header);

} // namespace velmo
