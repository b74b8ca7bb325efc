#pragma once

#include "equipment/AccessTable.h"
#include "equipment/AccessUsageMap.h"

namespace velmo
{

/// The live rows of a table in the order in which they are stored. A row that was moved counts at
/// the place where it first was.
class AccessRows
{
  public:
    /// @a pages outlives the rows.
    [[nodiscard]] static Result<AccessRows> Of(AccessPages& pages, const AccessTable& table);

    /// The next row's bytes; nothing after the last. The first error ends the walk: a damaged page
    /// may have held the row that was asked for.
    [[nodiscard]] Result<std::optional<ByteView>> Next();

  private:
    AccessRows(AccessPages& pages, std::uint32_t owner, AccessUsageMap map)
        : m_pages(&pages), m_owner(owner), m_map(map)
    {}

    /// The row that a pointer leads to, over further pointers if need be.
    [[nodiscard]] Result<ByteView> Follow(AccessStoredRow row);

    AccessPages* m_pages;
    std::uint32_t m_owner;
    AccessUsageMap m_map;
    ByteView m_page;
    std::size_t m_row = 0;
    std::size_t m_rowCount = 0;
};

} // namespace velmo
