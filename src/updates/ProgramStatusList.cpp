#include "updates/ProgramStatusList.h"

#include "catalogue/CVelmoProgramCommunicator.h"
#include "catalogue/ProgramCatalogue.h"
#include "settings/CINIFileHandler.h"
#include "updates/StartupOptions.h"
#include "updates/VersionList.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace velmo
{
namespace
{

constexpr std::string_view kNeedsUpdate = "Yes";
constexpr std::string_view kUpToDate = "No";
constexpr std::string_view kUnknown = "?";
constexpr std::string_view kTryDemo = "No (Try Demo)";
constexpr std::string_view kUnknownTryDemo = "? (Try Demo)";
constexpr std::string_view kNotInstalled = "Not Installed";
constexpr std::string_view kNotIntegrated = "-";

std::vector<ListColumn> Columns()
{
    std::vector<ListColumn> columns;
    for (const char* title : {"Program", "Check for Update on Startup", "Installed Version",
                              "Latest Version", "Need to Update"})
    {
        columns.push_back({title, 0, {}});
    }
    return columns;
}

std::string InstalledText(const ProgramVersion& installed, bool canBeLocated)
{
    if (installed.majorNumber != 0)
    {
        return InstalledVersionText(installed);
    }
    return std::string(canBeLocated ? kNotInstalled : kUnknown);
}

std::string_view Status(const ProgramVersion& installed, const ProgramVersion& latest,
                        bool canBeLocated)
{
    if (latest.majorNumber == 0)
    {
        return kUnknown;
    }
    if (installed.majorNumber != 0)
    {
        return IsUpToDate(installed, latest) ? kUpToDate : kNeedsUpdate;
    }
    return canBeLocated ? kTryDemo : kUnknownTryDemo;
}

const std::string& Cell(const ListRow& row, ProgramStatusList::Column column)
{
    return row.cells[column - 1];
}

} // namespace

ProgramStatusList::ProgramStatusList(CVelmoProgramCommunicator& locator,
                                     const CINIFileHandler& settings,
                                     const VersionList& versionList)
    : m_locator(locator), m_settings(settings), m_versionList(versionList), m_list(Columns())
{}

void ProgramStatusList::Rebuild(bool versionListPresent)
{
    std::vector<ListRow> rows;
    for (std::int32_t index = 0; index < kProgramCount; ++index)
    {
        if (index != kUnlistedRow)
        {
            rows.push_back(MakeRow(index, versionListPresent));
        }
    }
    m_list.SetRows(std::move(rows));
    if (const ListRow* selected = m_list.SelectedRow())
    {
        m_list.ScrollTo(selected->key);
    }
}

ListRow ProgramStatusList::MakeRow(std::int32_t index, bool versionListPresent) const
{
    const std::string name(NameOfIndex(index));
    const std::int32_t number = LocatorNumberOfIndex(index);
    const bool canBeLocated = number != kNoLocatorNumber;
    const ProgramVersion installed = canBeLocated ? Installed(number) : ProgramVersion();

    ListRow row;
    row.key = name;
    std::string latestText(kUnknown);
    std::string_view status = kUnknown;
    if (versionListPresent)
    {
        const ListedProgram listed = m_versionList.Read(name);
        status = Status(installed, listed.latest, canBeLocated);
        latestText = listed.versionText;
    }
    row.cells = {name, StartupText(name), InstalledText(installed, canBeLocated),
                 std::move(latestText), std::string(status)};
    row.bold = status == kNeedsUpdate;
    return row;
}

ProgramVersion ProgramStatusList::Installed(std::int32_t locatorNumber) const
{
    ProgramVersion version;
    m_locator.SetFileVersion(locatorNumber, version.majorNumber, version.minorNumber,
                             version.revision);
    return version;
}

std::string ProgramStatusList::StartupText(std::string_view displayName) const
{
    if (!IsIntegrated(m_settings, displayName))
    {
        return std::string(kNotIntegrated);
    }
    return std::string(StartupOptionText(ReadStartupOptions(m_settings, displayName).option));
}

void ProgramStatusList::RefreshStartupOption(std::string_view displayName)
{
    m_list.SetCell(displayName, CheckOnStartup, StartupText(displayName));
}

std::int32_t ProgramStatusList::CountThatNeedUpdate() const
{
    const auto& rows = m_list.Rows();
    return static_cast<std::int32_t>(std::count_if(rows.begin(), rows.end(), [](const auto& row) {
        return Cell(row, NeedToUpdate) == kNeedsUpdate;
    }));
}

ProgramButtons ProgramStatusList::Buttons() const
{
    const ListRow* row = m_list.SelectedRow();
    if (row == nullptr)
    {
        return {{"Set &Update Options...", false},
                {"&Download", false},
                {"&Go to Update Page", false},
                {"Go to &Info Page", false}};
    }
    const std::string& status = Cell(*row, NeedToUpdate);
    const bool demo = status == kTryDemo || status == kUnknownTryDemo;
    return {{"Set &Update Options for " + row->key + "...",
             Cell(*row, CheckOnStartup) != kNotIntegrated},
            {(demo ? "&Download Demo for " : "&Download Update for ") + row->key, true},
            {"&Go to Update Page for " + row->key, true},
            {"Go to &Info Page for " + row->key, true}};
}

} // namespace velmo
