#include "companion/StatusCommand.h"

#include "companion/ConsolePrompts.h"
#include "companion/TextTable.h"
#include "controls/MousePointer.h"
#include "manager/UpdateManager.h"
#include "platform/HeadlessLoop.h"

#include <ostream>

namespace velmo::companion
{
namespace
{

std::string ProgramTable(const ListViewModel& list)
{
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

ExitCode RunStatus(Output output)
{
    platform::HeadlessLoop loop;
    ConsolePrompts prompts(output.errors);
    MousePointer pointer;
    UpdateManager manager(loop, prompts, pointer);
    manager.FetchLists();
    manager.DeleteLists();
    output.out << ProgramTable(manager.Programs().List());
    if (!manager.Lists().Succeeded())
    {
        output.errors << "The vendor's lists could not be fetched from "
                      << manager.Lists().Server().webServer << ": "
                      << manager.Lists().LastErrorText() << "\n";
        return ExitCode::ServerUnreachable;
    }
    return manager.Programs().CountThatNeedUpdate() > 0 ? ExitCode::UpdatesAvailable
                                                        : ExitCode::Fine;
}

} // namespace

std::function<ExitCode(Output)> SetUpStatus(CLI::App& /*command*/)
{
    return RunStatus;
}

} // namespace velmo::companion
