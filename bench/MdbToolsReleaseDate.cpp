#include "bench/MdbToolsReleaseDate.h"

#include <mdbtools.h>

#include <array>
#include <memory>

namespace
{

std::string FirstReleaseDate(MdbTableDef* table)
{
    std::array<char, MDB_BIND_SIZE> text{};
    int length = 0;
    std::string column = "ReleaseDate";
    mdb_read_columns(table);
    if (mdb_bind_column_by_name(table, column.data(), text.data(), &length) == -1)
    {
        return {};
    }
    mdb_rewind_table(table);
    return mdb_fetch_row(table) ? text.data() : "";
}

} // namespace

std::optional<std::string> MdbToolsReleaseDate(const std::string& path)
{
    const std::unique_ptr<MdbHandle, void (*)(MdbHandle*)> file(
        mdb_open(path.c_str(), MDB_NOFLAGS), [](MdbHandle* handle) { mdb_close(handle); });
    std::string name = "Header";
    if (!file)
    {
        return "";
    }
    const std::unique_ptr<MdbTableDef, void (*)(MdbTableDef*)> table(
        mdb_read_table_by_name(file.get(), name.data(), MDB_TABLE),
        [](MdbTableDef* definition) { mdb_free_tabledef(definition); });
    return table ? FirstReleaseDate(table.get()) : "";
}
