#include "manager/Details.h"

#include "controls/StatusBoxModel.h"
#include "manager/ListsFetch.h"
#include "updates/ProgramRow.h"

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

} // namespace

std::string DetailsText(const DetailsSources& sources)
{
    std::string text;
    AddLine(text, "Velmo Software Update Manager", sources.programVersion);
    AddLine(text, "Program folder", sources.lists.Files().programFolder);
    AddLine(text, "Settings file", sources.settingsFile);
    AddLine(text, "Log file", sources.logFile);
    AddLine(text, "Server", sources.lists.Server().webServer);
    AddLine(text, "Lists", StatusBarText(sources.lists.Report()));
    const std::string& lines = sources.statusBox.Text();
    text += "\r\nLast refresh of the lists:\r\n" + (lines.empty() ? "(not yet)\r\n" : lines);
    text += "\r\nInstalled programs (installed version, latest version, need to update):\r\n";
    for (const ProgramRow& row : sources.programs)
    {
        if (row.IsInstalled())
        {
            AddLine(text, row.Name(),
                    CellText(row, ProgramColumn::InstalledVersion) + ", " +
                        CellText(row, ProgramColumn::LatestVersion) + ", " +
                        CellText(row, ProgramColumn::NeedToUpdate));
        }
    }
    return text;
}

} // namespace velmo
