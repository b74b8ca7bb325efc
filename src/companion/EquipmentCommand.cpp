#include "companion/EquipmentCommand.h"

#include "companion/ConsolePrompts.h"
#include "companion/TextTable.h"
#include "controls/MousePointer.h"
#include "manager/UpdateManager.h"
#include "platform/HeadlessLoop.h"

#include <ostream>
#include <string>
#include <utility>
#include <vector>

namespace velmo::companion
{
namespace
{

std::string OnOneLine(std::string header)
{
    for (std::size_t at = 0; (at = header.find("\r\n", at)) != std::string::npos;)
    {
        header.replace(at, 2, at == 0 ? "" : " ");
    }
    return header;
}

/// The columns that have texts to show.
std::vector<std::size_t> TextColumns(const GridModel& grid)
{
    std::vector<std::size_t> columns;
    for (std::size_t i = 0; i < grid.Columns().size(); ++i)
    {
        if (!grid.Columns()[i].hidden && !grid.Columns()[i].ticks)
        {
            columns.push_back(i);
        }
    }
    return columns;
}

std::string GridTable(const GridModel& grid)
{
    const std::vector<std::size_t> columns = TextColumns(grid);
    TextTable table;
    std::vector<std::string> cells;
    for (const std::size_t column : columns)
    {
        cells.push_back(OnOneLine(grid.Columns()[column].header));
    }
    table.Add(std::move(cells));
    for (const GridRow& row : grid.Rows())
    {
        cells.clear();
        for (const std::size_t column : columns)
        {
            cells.push_back(row.cells[column].text);
        }
        table.Add(std::move(cells));
    }
    return table.Text();
}

ExitCode RunEquipment(Output output)
{
    platform::HeadlessLoop loop;
    ConsolePrompts prompts(output.errors);
    MousePointer pointer;
    UpdateManager manager(loop, prompts, pointer);
    manager.FetchLists();
    manager.DeleteLists();
    output.out << GridTable(manager.Equipment().Grid().Model());
    if (!manager.Lists().Succeeded())
    {
        output.errors << "The vendor's lists could not be fetched from "
                      << manager.Lists().Server().webServer << ": "
                      << manager.Lists().LastErrorText() << "\n";
        return ExitCode::ServerUnreachable;
    }
    const UpdateCounts counts = manager.Counts();
    return counts.databases + counts.pictures > 0 ? ExitCode::UpdatesAvailable : ExitCode::Fine;
}

} // namespace

std::function<ExitCode(Output)> SetUpEquipment(CLI::App& /*command*/)
{
    return RunEquipment;
}

} // namespace velmo::companion
