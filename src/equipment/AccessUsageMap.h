#pragma once

#include "equipment/AccessPages.h"

namespace velmo
{

/// Which pages belong to a table, told one after the other, in rising order.
class AccessUsageMap
{
  public:
    /// The map stored in the row that @a place points to. @a pages outlives the map.
    [[nodiscard]] static Result<AccessUsageMap> Read(AccessPages& pages, AccessRowPointer place);

    /// The next page; nothing after the last.
    [[nodiscard]] Result<std::optional<std::uint32_t>> Next();

  private:
    AccessUsageMap(AccessPages& pages, ByteView row) : m_pages(&pages), m_row(row) {}

    /// Goes on to the next bitmap page that the row lists. False when there is none.
    [[nodiscard]] Result<bool> NextBitmap();

    AccessPages* m_pages;
    ByteView m_row;
    std::size_t m_nextReference = 0; ///< Past the row's end for a map inside the row.
    ByteView m_bitmap;
    std::uint32_t m_firstPage = 0; ///< The page of the bitmap's first bit.
    std::size_t m_bit = 0;
};

} // namespace velmo
