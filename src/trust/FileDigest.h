#pragma once

#include "platform/OpenFile.h"
#include "platform/Result.h"

#include <array>
#include <cstdint>
#include <string_view>

namespace velmo
{

/// A SHA-256 hash.
using Sha256 = std::array<unsigned char, 32>;

/// What tells a file's bytes from any others.
struct FileDigest
{
    std::uint64_t size = 0; ///< Bytes.
    Sha256 hash{};

    [[nodiscard]] friend bool operator==(const FileDigest&, const FileDigest&) = default;
};

/// Of bytes in memory. Any thread.
[[nodiscard]] FileDigest DigestOf(std::string_view bytes);

/// Of the file that is held open, read in parts, so that memory stays flat. Error 30 when it cannot be
/// read to its end. Any thread.
[[nodiscard]] Result<FileDigest> DigestOf(const platform::OpenFile& file);

} // namespace velmo
