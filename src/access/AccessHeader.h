#pragma once

#include "access/AccessFormat.h"
#include "text/ByteView.h"

namespace velmo
{

/// How many bytes at the start of a file CheckAccessHeader() looks at.
inline constexpr std::size_t kAccessHeaderSize = 0x98;

/**
    Decides from a file's first bytes whether and how it can be read.

    Faults: kBadFormat (no Access file, or of an unknown version), kWrongPassword (protected by one),
    kFileEncoded, kFileDamaged.
 */
[[nodiscard]] const JetFormat& CheckAccessHeader(ByteView header);

} // namespace velmo
