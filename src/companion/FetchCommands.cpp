#include "companion/CommandSetUp.h"
#include "companion/TextTable.h"
#include "controls/MousePointer.h"
#include "controls/UserPrompts.h"
#include "download/InternetErrorText.h"
#include "manager/UpdateManager.h"
#include "platform/HeadlessLoop.h"

#include <cstddef>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

namespace velmo::companion
{
namespace
{

/// Notices as lines of text: there is nobody to press a button.
class ConsolePrompts final : public UserPrompts
{
  public:
    explicit ConsolePrompts(std::ostream& errors) : m_errors(errors) {}

    void Notify(PromptIcon /*icon*/, const std::string& text, const std::string& title) override
    {
        m_errors << title << ": " << text << "\n";
    }

  private:
    std::ostream& m_errors;
};

/// What a command tells once the vendor's lists have been fetched.
struct FetchedTable
{
    TextTable (*table)(UpdateManager& manager); ///< Also when they could not be fetched.
    bool (*needsUpdate)(const UpdateCounts& counts);
    bool isOfEquipment;
};

/// Why the list that the command tells of could not be had, as a sentence; empty when it could.
std::string WhyNotFetched(const ListsFetch& lists, bool isOfEquipment)
{
    const FetchReport& report = lists.Report();
    const std::string from = " could not be fetched from " + lists.Server().webServer + ": ";
    if (!report.Succeeded())
    {
        return "The vendor's lists" + from + ReasonText(report.reason);
    }
    return isOfEquipment && report.equipmentFailure
               ? "The equipment list" + from + ReasonText(*report.equipmentFailure)
               : "";
}

ExitCode PrintFetched(const FetchedTable& fetched, Output output)
{
    platform::HeadlessLoop loop;
    ConsolePrompts prompts(output.errors);
    MousePointer pointer;
    UpdateManager manager(loop, prompts, pointer);
    manager.FetchLists();
    manager.DeleteLists();
    output.out << fetched.table(manager).Text();
    if (const std::string why = WhyNotFetched(manager.Lists(), fetched.isOfEquipment); !why.empty())
    {
        output.errors << why << "\n";
        return ExitCode::ServerUnreachable;
    }
    return fetched.needsUpdate(manager.Shown().Counts()) ? ExitCode::UpdatesAvailable
                                                         : ExitCode::Fine;
}

TextTable ProgramTable(UpdateManager& manager)
{
    const ListViewModel& list = manager.Programs().List();
    TextTable table;
    std::vector<std::string> header;
    for (const ListColumn& column : list.Columns())
    {
        header.push_back(column.title);
    }
    table.Add(std::move(header));
    for (std::size_t row = 0; row < list.RowCount(); ++row)
    {
        std::vector<std::string> cells;
        for (std::size_t column = 1; column <= list.Columns().size(); ++column)
        {
            cells.push_back(list.Text(row, column));
        }
        table.Add(std::move(cells));
    }
    return table;
}

std::string OnOneLine(std::string header)
{
    for (std::size_t at = 0; (at = header.find("\r\n", at)) != std::string::npos;)
    {
        header.replace(at, 2, at == 0 ? "" : " ");
    }
    return header;
}

TextTable EquipmentTable(UpdateManager& manager)
{
    const GridModel& grid = manager.Equipment().Grid().Model();
    std::vector<std::size_t> columns; // that have texts to show
    std::vector<std::string> cells;
    for (std::size_t column = 0; column < grid.Columns().size(); ++column)
    {
        if (!grid.Columns()[column].hidden && !grid.Columns()[column].ticks)
        {
            columns.push_back(column);
            cells.push_back(OnOneLine(grid.Columns()[column].header));
        }
    }
    TextTable table;
    table.Add(cells);
    for (std::size_t row = 0; row < grid.Rows().RowCount(); ++row)
    {
        cells.clear();
        for (const std::size_t column : columns)
        {
            cells.push_back(grid.Rows().Text(row, column));
        }
        table.Add(cells);
    }
    return table;
}

constexpr FetchedTable kPrograms{
    ProgramTable, [](const UpdateCounts& counts) { return counts.programs > 0; }, false};
constexpr FetchedTable kEquipment{
    EquipmentTable,
    [](const UpdateCounts& counts) { return counts.databases + counts.pictures > 0; }, true};

} // namespace

Action SetUpStatus(CLI::App& /*command*/)
{
    return [](Output output) { return PrintFetched(kPrograms, output); };
}

Action SetUpEquipment(CLI::App& /*command*/)
{
    return [](Output output) { return PrintFetched(kEquipment, output); };
}

} // namespace velmo::companion
