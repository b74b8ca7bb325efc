#pragma once

#include "platform/Result.h"

#include <array>
#include <cstddef>
#include <string_view>
#include <vector>

namespace velmo
{

/// What a signature names its key by. Nobody vouches for it: it says which key to try.
using KeyNumber = std::array<unsigned char, 8>;

/// A public key that signs lists: minisign's, an Ed25519 key with its number.
struct ListKey
{
    KeyNumber number{};
    std::array<unsigned char, 32> key{};
};

/// A text has this many keys at most.
inline constexpr std::size_t kMostListKeys = 4;

/**
    Reads keys as minisign writes them, in base64, 56 characters each, parted by blanks or commas; the
    newest stands first. No text, no keys. Error 13 for anything that is no key, a number that comes
    twice, and too many: a text that is half understood is not used. Any thread.
 */
[[nodiscard]] Result<std::vector<ListKey>> ParseListKeys(std::string_view text);

} // namespace velmo
