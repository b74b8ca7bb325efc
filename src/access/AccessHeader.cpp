#include "access/AccessHeader.h"

#include "platform/ErrorCode.h"

#include <array>
#include <bit>
#include <utility>

namespace velmo
{
namespace
{

constexpr std::size_t kEngineName = 4;
constexpr std::size_t kVersion = 0x14;
constexpr std::uint8_t kJet4Version = 1;
constexpr std::uint8_t kNewestVersion = 6; // Access 2019 and later

constexpr std::size_t kMasked = 0x18;
constexpr std::size_t kDatabaseKey = 0x3E;
constexpr std::size_t kPassword = 0x42;
constexpr std::size_t kCreationDate = 0x72;

using Header = std::array<std::byte, kAccessHeaderSize>;

/// What every file's header is masked with: the RC4 key stream of one fixed key.
constexpr auto kMask = [] {
    constexpr std::array<std::uint8_t, 4> kKey = {0xC7, 0xDA, 0x39, 0x6B};
    std::array<std::uint8_t, 256> state{};
    for (std::size_t i = 0; i < state.size(); ++i)
    {
        state[i] = static_cast<std::uint8_t>(i);
    }
    std::uint8_t j = 0;
    for (std::size_t i = 0; i < state.size(); ++i)
    {
        j = static_cast<std::uint8_t>(j + state[i] + kKey[i % kKey.size()]);
        std::swap(state[i], state[j]);
    }
    std::array<std::byte, kAccessHeaderSize - kMasked> mask{};
    j = 0;
    for (std::size_t n = 0; n < mask.size(); ++n)
    {
        const std::size_t i = n + 1;
        j = static_cast<std::uint8_t>(j + state[i]);
        std::swap(state[i], state[j]);
        mask[n] = static_cast<std::byte>(state[static_cast<std::uint8_t>(state[i] + state[j])]);
    }
    return mask;
}();

Header Unmask(ByteView masked)
{
    Header header{};
    for (std::size_t i = 0; i < header.size(); ++i)
    {
        header[i] = masked.Bytes()[i] ^ (i < kMasked ? std::byte{0} : kMask[i - kMasked]);
    }
    return header;
}

bool IsAccessFile(ByteView header)
{
    using namespace std::string_view_literals;
    const std::string_view text = header.Chars();
    const std::string_view name = text.substr(kEngineName, 16);
    return text.starts_with("\0\1\0\0"sv) &&
           (name == "Standard Jet DB\0"sv || name == "Standard ACE DB\0"sv);
}

/// The whole days of the creation date, with which the password is masked.
std::uint32_t CreationDay(ByteView header)
{
    const auto date = std::bit_cast<double>(header.U64(kCreationDate));
    if (!(date > -1e6 && date < 1e7))
    {
        ThrowDamaged("its creation date is not a date");
    }
    return static_cast<std::uint32_t>(static_cast<std::int32_t>(date));
}

bool HasPassword(ByteView header, std::size_t size, std::uint32_t mask)
{
    std::uint32_t differing = 0;
    for (std::size_t i = 0; i < size; i += sizeof mask)
    {
        differing |= header.U32(kPassword + i) ^ mask;
    }
    return differing != 0;
}

} // namespace

const JetFormat& CheckAccessHeader(ByteView header)
{
    if (header.Size() < kAccessHeaderSize || !IsAccessFile(header))
    {
        ThrowAccessFault(error_code::kBadFormat, "The file is not an Access database.");
    }
    const std::uint8_t version = header.U8(kVersion);
    if (version > kNewestVersion)
    {
        ThrowAccessFault(error_code::kBadFormat,
                         "The database is of an unknown version of Access (" +
                             std::to_string(version) + ").");
    }
    const JetFormat& format = version < kJet4Version ? kJet3 : kJet4;
    const Header unmasked = Unmask(header);
    const ByteView plain(unmasked);
    if (plain.U32(kDatabaseKey) != 0)
    {
        // Up to 2003 the key only garbles the pages; from 2007 on it is there for a password.
        if (version > kJet4Version)
        {
            ThrowAccessFault(error_code::kWrongPassword,
                             "The database is encrypted with a password.");
        }
        ThrowAccessFault(error_code::kFileEncoded, "The database is encoded.");
    }
    const std::uint32_t mask = format.passwordIsMaskedWithDate ? CreationDay(plain) : 0;
    if (HasPassword(plain, format.passwordSize, mask))
    {
        ThrowAccessFault(error_code::kWrongPassword, "The database is protected by a password.");
    }
    return format;
}

} // namespace velmo
