#include "access/AccessFile.h"

#include "access/AccessObjects.h"
#include "access/AccessRows.h"
#include "access/AccessValue.h"
#include "platform/ErrorCode.h"

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
    try
    {
        return AccessFile(AccessPages(std::move(source)));
    }
    catch (const AccessFault& fault)
    {
        return fault.error;
    }
}

Result<AccessField> AccessFile::FirstRecordField(std::string_view table, std::string_view field)
{
    try
    {
        return ReadField(table, field);
    }
    catch (const AccessFault& fault)
    {
        return fault.error;
    }
}

AccessField AccessFile::ReadField(std::string_view tableName, std::string_view field)
{
    const auto table = FindAccessTable(m_pages, tableName);
    if (!table)
    {
        return {State::NoTable, {}};
    }
    const auto column = table->FindColumn(field);
    if (!column)
    {
        return {State::NoField, {}};
    }
    const auto bytes = AccessRows(m_pages, *table).Next();
    if (!bytes)
    {
        return {State::NoRows, {}};
    }
    const auto text = AccessValue(m_pages, AccessRow(m_pages.Format(), *table, *bytes), *column);
    return text ? AccessField{State::Value, *text} : AccessField{State::Null, {}};
}

Result<std::optional<std::string>> ReadAccessField(std::string_view path, std::string_view table,
                                                   std::string_view field)
{
    const std::string tableName = "able \"" + std::string(table) + "\"";
    auto file = AccessFile::Open(path);
    auto read = file ? std::move(file).Value().FirstRecordField(table, field) : file.Failure();
    if (!read)
    {
        return read.Failure();
    }
    switch (read.Value().state)
    {
    case State::NoTable:
        return Error{error_code::kElementNotFound, "There is no t" + tableName + "."};
    case State::NoField:
        return Error{error_code::kElementNotFound,
                     "T" + tableName + " has no field \"" + std::string(field) + "\"."};
    case State::NoRows:
        return Error{error_code::kElementNotFound, "T" + tableName + " has no rows."};
    case State::Null:
        return std::optional<std::string>();
    case State::Value:
        break;
    }
    return std::optional(std::move(read).Value().text);
}

} // namespace velmo
