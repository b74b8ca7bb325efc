#include "manager/Details.h"

#include "controls/ListViewModel.h"
#include "controls/StatusBoxModel.h"
#include "updates/ListsDownload.h"
#include "updates/ProgramStatusList.h"

#include <cctype>

namespace velmo
{
namespace
{

void AddLine(std::string& text, std::string_view name, std::string_view value)
{
    text += name;
    text += ": ";
    text += value.empty() ? "(none)" : value;
    text += "\r\n";
}

const std::string& Cell(const ListRow& row, ProgramStatusList::Column column)
{
    return row.cells[column - 1];
}

bool IsInstalled(const ListRow& row)
{
    const std::string& version = Cell(row, ProgramStatusList::InstalledVersion);
    return !version.empty() && std::isdigit(static_cast<unsigned char>(version.front())) != 0;
}

} // namespace

std::string DetailsText(const DetailsSources& sources)
{
    std::string text;
    AddLine(text, "Velmo Software Update Manager", sources.programVersion);
    AddLine(text, "Program folder", sources.lists.Files().programFolder);
    AddLine(text, "Settings file", sources.settingsFile);
    AddLine(text, "Log file", sources.logFile);
    AddLine(text, "Server", sources.lists.Server().webServer);
    const std::string& lines = sources.statusBox.Text();
    text += "\r\nLast refresh of the lists:\r\n" + (lines.empty() ? "(not yet)\r\n" : lines);
    text += "\r\nInstalled programs (installed version, latest version, need to update):\r\n";
    for (const ListRow& row : sources.programs.Rows())
    {
        if (IsInstalled(row))
        {
            AddLine(text, row.key,
                    Cell(row, ProgramStatusList::InstalledVersion) + ", " +
                        Cell(row, ProgramStatusList::LatestVersion) + ", " +
                        Cell(row, ProgramStatusList::NeedToUpdate));
        }
    }
    return text;
}

} // namespace velmo
