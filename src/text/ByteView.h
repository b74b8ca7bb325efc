#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string_view>

namespace velmo
{

/**
    Bytes of a file that nobody vouches for. Numbers are little-endian. Nothing outside the view is
    ever read: a number that does not lie wholly inside is 0, so ask Has() first where a 0 would be
    taken for a value. Does not own the bytes.
 */
class ByteView
{
  public:
    ByteView() = default;
    explicit ByteView(std::span<const std::byte> bytes) : m_bytes(bytes) {}
    explicit ByteView(std::string_view bytes) : m_bytes(std::as_bytes(std::span(bytes))) {}

    [[nodiscard]] std::size_t Size() const { return m_bytes.size(); }

    [[nodiscard]] bool Has(std::size_t offset, std::size_t length) const
    {
        return offset <= m_bytes.size() && length <= m_bytes.size() - offset;
    }

    [[nodiscard]] std::uint8_t U8(std::size_t offset) const
    {
        return static_cast<std::uint8_t>(Number(offset, 1));
    }

    [[nodiscard]] std::uint16_t U16(std::size_t offset) const
    {
        return static_cast<std::uint16_t>(Number(offset, 2));
    }

    [[nodiscard]] std::uint32_t U32(std::size_t offset) const
    {
        return static_cast<std::uint32_t>(Number(offset, 4));
    }

    [[nodiscard]] std::uint64_t U64(std::size_t offset) const { return Number(offset, 8); }

    /// @a length bytes from @a offset on; nothing when the view does not have them all.
    [[nodiscard]] std::optional<ByteView> Part(std::size_t offset, std::size_t length) const
    {
        if (!Has(offset, length))
        {
            return std::nullopt;
        }
        return ByteView(m_bytes.subspan(offset, length));
    }

    /// Everything from @a offset on; empty when that is past the end.
    [[nodiscard]] ByteView From(std::size_t offset) const
    {
        return offset < m_bytes.size() ? ByteView(m_bytes.subspan(offset)) : ByteView();
    }

    [[nodiscard]] std::span<const std::byte> Bytes() const { return m_bytes; }

    [[nodiscard]] std::string_view Chars() const
    {
        return {reinterpret_cast<const char*>(m_bytes.data()), m_bytes.size()};
    }

  private:
    [[nodiscard]] std::uint64_t Number(std::size_t offset, std::size_t width) const
    {
        if (!Has(offset, width))
        {
            return 0;
        }
        std::uint64_t number = 0;
        for (std::size_t i = width; i > 0; --i)
        {
            number = number << 8 | std::to_integer<std::uint64_t>(m_bytes[offset + i - 1]);
        }
        return number;
    }

    std::span<const std::byte> m_bytes;
};

} // namespace velmo
