#pragma once

#include "platform/Result.h"
#include "trust/ListKey.h"

#include <array>
#include <cstddef>
#include <string_view>

namespace velmo
{

/// A larger file of signed lists is not looked at.
inline constexpr std::size_t kMostSignedBytes = 1 << 20;

/**
    A file of signed lists, taken apart: the four lines of a minisign signature, then the text that it
    signs. Nothing of it is to be believed before IsSignedBy(). The views are of the file's bytes.

        untrusted comment: ...
        base64 of "ED", the key's number, the signature of the text's BLAKE2b-512
        trusted comment: ...
        base64 of the signature of the first signature and the comment
        [Velmo Lists]
        ...
 */
struct ListSignature
{
    using Bytes = std::array<unsigned char, 64>;

    KeyNumber keyNumber{};
    Bytes ofText{};
    std::string_view comment;
    Bytes ofComment{};
    std::string_view text;
};

/// Takes the file apart. Error 13 for anything else, so for the older form too that signs the text
/// itself ("Ed"); 223 for a file of more than kMostSignedBytes. Any thread.
[[nodiscard]] Result<ListSignature> ParseListSignature(std::string_view file);

/// Whether the key signed both, the text and the comment. Any thread.
[[nodiscard]] bool IsSignedBy(const ListSignature& signature, const ListKey& key);

} // namespace velmo
