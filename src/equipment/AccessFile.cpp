#include "equipment/AccessFile.h"

#include "equipment/AccessCatalogue.h"
#include "equipment/AccessRows.h"
#include "equipment/AccessValue.h"

#include <utility>

namespace velmo
{
namespace
{

using State = AccessField::State;

} // namespace

Result<AccessFile> AccessFile::Open(std::string_view path)
{
    auto file = platform::FileReader::Open(path);
    return file ? OpenSource(std::move(file).Value()) : file.Failure();
}

Result<AccessFile> AccessFile::OpenBytes(std::span<const std::byte> bytes)
{
    return OpenSource(bytes);
}

Result<AccessFile> AccessFile::OpenSource(AccessSource source)
{
    auto pages = AccessPages::Open(std::move(source));
    return pages ? Result(AccessFile(std::move(pages).Value())) : pages.Failure();
}

Result<AccessField> AccessFile::FirstRecordField(std::string_view table, std::string_view field)
{
    const auto found = FindAccessTable(m_pages, table);
    if (!found)
    {
        return found.Failure();
    }
    if (!found.Value())
    {
        return AccessField{State::NoTable, {}};
    }
    const AccessTable& definition = *found.Value();
    const auto column = definition.FindColumn(field);
    if (!column)
    {
        return column.Failure();
    }
    if (!column.Value())
    {
        return AccessField{State::NoField, {}};
    }
    auto rows = AccessRows::Of(m_pages, definition);
    if (!rows)
    {
        return rows.Failure();
    }
    const auto bytes = AccessRows(rows.Value()).Next();
    if (!bytes)
    {
        return bytes.Failure();
    }
    if (!bytes.Value())
    {
        return AccessField{State::NoRows, {}};
    }
    const AccessRow row(m_pages.Format(), definition, *bytes.Value());
    auto value = AccessValue({m_pages, row, *column.Value()});
    if (!value)
    {
        return value.Failure();
    }
    const auto text = std::move(value).Value();
    return text ? AccessField{State::Value, *text} : AccessField{State::Null, {}};
}

} // namespace velmo
