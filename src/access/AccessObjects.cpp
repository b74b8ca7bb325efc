#include "access/AccessObjects.h"

#include "access/AccessRows.h"
#include "access/AccessText.h"

namespace velmo
{
namespace
{

constexpr std::uint32_t kObjectsPage = 2;
constexpr std::uint32_t kPageOfId = 0xFF'FFFF;
constexpr std::uint16_t kTypeOfTables = 1;

AccessColumn ColumnOf(const AccessTable& objects, std::string_view name, AccessType type)
{
    const auto column = objects.FindColumn(name);
    if (!column || column->type != type)
    {
        ThrowDamaged("its table of objects has no column \"" + std::string(name) + "\"");
    }
    return *column;
}

} // namespace

std::optional<AccessTable> FindAccessTable(AccessPages& pages, std::string_view name)
{
    const AccessTable objects(pages, kObjectsPage);
    const AccessColumn id = ColumnOf(objects, "Id", AccessType::Long);
    const AccessColumn type = ColumnOf(objects, "Type", AccessType::Integer);
    const AccessColumn objectName = ColumnOf(objects, "Name", AccessType::Text);
    AccessRows rows(pages, objects);
    while (const auto bytes = rows.Next())
    {
        const AccessRow row(pages.Format(), objects, *bytes);
        if (row.Field(type).U16(0) != kTypeOfTables)
        {
            continue;
        }
        if (!row.IsPresent(objectName))
        {
            ThrowDamaged("a table has no name");
        }
        if (IsAccessName(row.Field(objectName), name, pages.Format()))
        {
            return AccessTable(pages, row.Field(id).U32(0) & kPageOfId);
        }
    }
    return std::nullopt;
}

} // namespace velmo
