#pragma once

#include "access/AccessTable.h"

namespace velmo
{

/// Which pages belong to a table, told one after the other, in rising order.
class AccessUsageMap
{
  public:
    /// The map stored in the row that @a place points to. @a pages outlives the map.
    AccessUsageMap(AccessPages& pages, AccessRowPointer place);

    /// The next page; nothing after the last.
    [[nodiscard]] std::optional<std::uint32_t> Next();

  private:
    /// Goes on to the next bitmap page that the row lists. False when there is none.
    [[nodiscard]] bool TakeNextBitmap();

    AccessPages* m_pages;
    ByteView m_row;
    std::size_t m_nextReference = 0; ///< Past the row's end for a map inside the row.
    ByteView m_bitmap;
    std::uint32_t m_firstPage = 0; ///< The page of the bitmap's first bit.
    std::size_t m_bit = 0;
};

/// One row, taken apart by its table's definition.
class AccessRow
{
  public:
    /// @a table and the bytes outlive the row.
    AccessRow(const JetFormat& format, const AccessTable& table, ByteView bytes)
        : m_format(&format), m_table(&table), m_bytes(bytes)
    {}

    /// Whether the column has a value here. For a Boolean column this is the value itself. Rows
    /// that are older than a column have none for it.
    [[nodiscard]] bool IsPresent(const AccessColumn& column) const;

    /// The stored bytes of a column that is present and not Boolean.
    [[nodiscard]] ByteView Field(const AccessColumn& column) const;

  private:
    [[nodiscard]] std::size_t Number(std::size_t offset) const;
    [[nodiscard]] std::size_t ColumnCount() const { return Number(0); }

    /// Where the null mask starts, which ends the row; nothing when the row is too short for it.
    [[nodiscard]] std::optional<std::size_t> NullMask() const;

    [[nodiscard]] std::optional<ByteView> FixedField(const AccessColumn& column) const;
    [[nodiscard]] std::optional<ByteView> VariableField(const AccessColumn& column) const;

    const JetFormat* m_format;
    const AccessTable* m_table;
    ByteView m_bytes;
};

/// The live rows of a table in the order in which they are stored. A row that was moved counts at
/// the place where it first was.
class AccessRows
{
  public:
    /// @a pages outlives the rows.
    AccessRows(AccessPages& pages, const AccessTable& table);

    /// The next row's bytes; nothing after the last. The first fault ends the walk: a damaged page
    /// may have held the row that was asked for.
    [[nodiscard]] std::optional<ByteView> Next();

  private:
    /// The row that a pointer leads to, over further pointers if need be.
    [[nodiscard]] ByteView Follow(AccessStoredRow row);

    AccessPages* m_pages;
    std::uint32_t m_owner;
    AccessUsageMap m_map;
    ByteView m_page;
    std::size_t m_row = 0;
    std::size_t m_rowCount = 0;
};

} // namespace velmo
