#include "companion/EquipmentCommand.h"

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

std::string EquipmentText(UpdateManager& manager)
{
    return GridTable(manager.Equipment().Grid().Model());
}

bool EquipmentNeedsUpdate(const UpdateCounts& counts)
{
    return counts.databases + counts.pictures > 0;
}

} // namespace

std::function<ExitCode(Output)> SetUpEquipment(CLI::App& /*command*/)
{
    return [](Output output) {
        return PrintFetched({EquipmentText, EquipmentNeedsUpdate}, output);
    };
}

} // namespace velmo::companion
