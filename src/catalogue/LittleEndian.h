#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace velmo
{

/// The unsigned 16-bit number at @a offset, low byte first. The bytes must be there.
[[nodiscard]] constexpr std::uint16_t Load16(std::string_view bytes, std::size_t offset)
{
    return static_cast<std::uint16_t>(static_cast<unsigned char>(bytes[offset]) |
                                      static_cast<unsigned char>(bytes[offset + 1]) << 8);
}

/// The unsigned 32-bit number at @a offset, low byte first. The bytes must be there.
[[nodiscard]] constexpr std::uint32_t Load32(std::string_view bytes, std::size_t offset)
{
    return Load16(bytes, offset) | std::uint32_t{Load16(bytes, offset + 2)} << 16;
}

} // namespace velmo
