#include "equipment/AccessCatalogue.h"

#include "equipment/AccessRow.h"
#include "equipment/AccessRows.h"
#include "equipment/AccessText.h"

namespace velmo
{
namespace
{

constexpr std::uint32_t kCataloguePage = 2;
constexpr std::uint32_t kPageOfId = 0xFF'FFFF;
constexpr std::uint16_t kTypeOfTables = 1;

struct CatalogueColumns
{
    AccessColumn id;
    AccessColumn type;
    AccessColumn name;
};

Result<CatalogueColumns> FindColumns(const AccessTable& catalogue)
{
    CatalogueColumns columns;
    const struct
    {
        std::string_view name;
        AccessType type;
        AccessColumn& column;
    } wanted[] = {{"Id", AccessType::Long, columns.id},
                  {"Type", AccessType::Integer, columns.type},
                  {"Name", AccessType::Text, columns.name}};
    for (const auto& [name, type, column] : wanted)
    {
        const auto found = catalogue.FindColumn(name);
        if (!found)
        {
            return found.Failure();
        }
        if (!found.Value() || found.Value()->type != type)
        {
            return DamagedAccessFile("its catalogue has no column \"" + std::string(name) + "\"");
        }
        column = *found.Value();
    }
    return columns;
}

/// The definition's page when the row is the table of that name.
Result<std::optional<std::uint32_t>> TablePage(const AccessRow& row,
                                               const CatalogueColumns& columns,
                                               std::string_view wanted, const JetFormat& format)
{
    const auto type = row.Field(columns.type);
    if (!type)
    {
        return type.Failure();
    }
    if (type.Value().U16(0) != kTypeOfTables)
    {
        return std::optional<std::uint32_t>();
    }
    const auto hasName = row.IsPresent(columns.name);
    if (!hasName || !hasName.Value())
    {
        return DamagedAccessFile("a table in its catalogue has no name");
    }
    const auto name = row.Field(columns.name);
    const auto id = row.Field(columns.id);
    if (!name || !id)
    {
        return name ? id.Failure() : name.Failure();
    }
    if (!IsAccessName(name.Value(), wanted, format))
    {
        return std::optional<std::uint32_t>();
    }
    return std::optional(id.Value().U32(0) & kPageOfId);
}

} // namespace

Result<std::optional<AccessTable>> FindAccessTable(AccessPages& pages, std::string_view name)
{
    const auto catalogue = AccessTable::Read(pages, kCataloguePage);
    if (!catalogue)
    {
        return catalogue.Failure();
    }
    const auto columns = FindColumns(catalogue.Value());
    auto rows = columns ? AccessRows::Of(pages, catalogue.Value()) : columns.Failure();
    if (!rows)
    {
        return rows.Failure();
    }
    AccessRows walk = rows.Value();
    for (;;)
    {
        const auto bytes = walk.Next();
        if (!bytes)
        {
            return bytes.Failure();
        }
        if (!bytes.Value())
        {
            return std::optional<AccessTable>();
        }
        const AccessRow row(pages.Format(), catalogue.Value(), *bytes.Value());
        const auto page = TablePage(row, columns.Value(), name, pages.Format());
        if (!page)
        {
            return page.Failure();
        }
        if (page.Value())
        {
            auto table = AccessTable::Read(pages, *page.Value());
            return table ? Result(std::optional(std::move(table).Value())) : table.Failure();
        }
    }
}

} // namespace velmo
