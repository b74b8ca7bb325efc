#pragma once

#include "equipment/AccessTable.h"

namespace velmo
{

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
    [[nodiscard]] Result<bool> IsPresent(const AccessColumn& column) const;

    /// The stored bytes of a column that is present and not Boolean.
    [[nodiscard]] Result<ByteView> Field(const AccessColumn& column) const;

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

} // namespace velmo
