#include "companion/StatusCommand.h"

#include "companion/FetchedTable.h"
#include "companion/TextTable.h"
#include "manager/UpdateManager.h"

#include <string>
#include <utility>
#include <vector>

namespace velmo::companion
{
namespace
{

std::string ProgramText(UpdateManager& manager)
{
    const ListViewModel& list = manager.Programs().List();
    TextTable table;
    std::vector<std::string> header;
    for (const ListColumn& column : list.Columns())
    {
        header.push_back(column.title);
    }
    table.Add(std::move(header));
    for (const ListRow& row : list.Rows())
    {
        table.Add(row.cells);
    }
    return table.Text();
}

bool ProgramNeedsUpdate(const UpdateCounts& counts)
{
    return counts.programs > 0;
}

} // namespace

std::function<ExitCode(Output)> SetUpStatus(CLI::App& /*command*/)
{
    return [](Output output) { return PrintFetched({ProgramText, ProgramNeedsUpdate}, output); };
}

} // namespace velmo::companion
