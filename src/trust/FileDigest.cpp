#include "trust/FileDigest.h"

#include "platform/ErrorCode.h"

#include <sodium.h>

#include <algorithm>
#include <span>
#include <vector>

namespace velmo
{

FileDigest DigestOf(std::string_view bytes)
{
    FileDigest digest{bytes.size(), {}};
    crypto_hash_sha256(digest.hash.data(), reinterpret_cast<const unsigned char*>(bytes.data()),
                       bytes.size());
    return digest;
}

Result<FileDigest> DigestOf(const platform::OpenFile& file)
{
    constexpr std::uint64_t kPart = 1 << 16;
    std::vector<std::byte> part(kPart);
    FileDigest digest{file.Size(), {}};
    crypto_hash_sha256_state state;
    crypto_hash_sha256_init(&state);
    for (std::uint64_t at = 0; at < digest.size; at += part.size())
    {
        part.resize(static_cast<std::size_t>(std::min(kPart, digest.size - at)));
        if (!file.ReadAt(at, part))
        {
            return Error{error_code::kReadFault, "The file cannot be read to its end."};
        }
        crypto_hash_sha256_update(&state, reinterpret_cast<const unsigned char*>(part.data()),
                                  part.size());
    }
    crypto_hash_sha256_final(&state, digest.hash.data());
    return digest;
}

} // namespace velmo
