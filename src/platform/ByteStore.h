#pragma once

#include <cstddef>
#include <span>

namespace velmo::platform
{

/**
    Bytes that are added at the end and never move: address space for the most that may come is set
    aside at once, memory is taken as bytes arrive. So a download needs no more memory than its size,
    and what has arrived can be looked at while more is added.

    One thread adds; another may read the bytes that it has been told of (by whatever passes the count
    between the two threads).
 */
class ByteStore
{
  public:
    /// @a most = the most bytes that it will take.
    explicit ByteStore(std::size_t most);
    ~ByteStore();
    ByteStore(const ByteStore&) = delete;
    ByteStore& operator=(const ByteStore&) = delete;

    /// False, and nothing added, when that would be more than the most or memory is short.
    [[nodiscard]] bool Add(std::span<const std::byte> bytes);

    /// The first @a count bytes, which must have been added. Valid while the store lives.
    [[nodiscard]] std::span<const std::byte> First(std::size_t count) const
    {
        return {m_bytes, count};
    }

  private:
    std::byte* m_bytes = nullptr;
    std::size_t m_reserved = 0;
    std::size_t m_usable = 0; ///< With memory behind it.
    std::size_t m_size = 0;
};

} // namespace velmo::platform
