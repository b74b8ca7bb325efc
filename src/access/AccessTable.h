#pragma once

#include "access/AccessPages.h"

#include <optional>
#include <string_view>
#include <vector>

namespace velmo
{

struct AccessColumn
{
    AccessType type{};
    std::uint16_t number = 0; ///< Keeps counting over deleted columns.
    bool isFixed = false; ///< In the row's fixed part, at fixedOffset; else in its variable part.
    std::uint16_t variableIndex = 0; ///< Place in the row's table of variable columns.
    std::uint16_t fixedOffset = 0;
    std::uint16_t length = 0; ///< Bytes; of a fixed text column.
};

/// A table's definition: where its rows are and how they are laid out.
class AccessTable
{
  public:
    /// Reads the definition that starts on that page. @a pages outlives the table.
    AccessTable(AccessPages& pages, std::uint32_t page);

    AccessTable(AccessTable&&) noexcept = default;
    AccessTable& operator=(AccessTable&&) noexcept = default;

    /// The definition's first page, which is what the table's data pages name as their owner.
    [[nodiscard]] std::uint32_t Page() const { return m_page; }

    [[nodiscard]] AccessRowPointer UsageMap() const;

    /// Whether rows have a table of variable columns (deleted ones count).
    [[nodiscard]] bool HasVariableColumns() const;

    /// The column of that name (IsAccessName), or nothing.
    [[nodiscard]] std::optional<AccessColumn> FindColumn(std::string_view name) const;

  private:
    /// Appends the pages that the definition goes on on.
    void Join(AccessPages& pages, ByteView firstPage);

    const JetFormat* m_format;
    std::uint32_t m_page;
    std::vector<std::byte> m_joined; ///< Empty for a definition on one page.
    ByteView m_definition;           ///< Of m_joined or of the page.
};

} // namespace velmo
