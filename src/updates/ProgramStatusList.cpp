#include "updates/ProgramStatusList.h"

#include "catalogue/CVelmoProgramCommunicator.h"
#include "catalogue/ProgramCatalogue.h"
#include "catalogue/ProgramTable.h"
#include "settings/CINIFileHandler.h"
#include "updates/StartupOptions.h"
#include "updates/VersionList.h"

#include <algorithm>

namespace velmo
{
namespace
{

/// In the order of ProgramColumn.
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

bool HasInformationPage(std::int32_t index)
{
    return !kPrograms[static_cast<std::size_t>(index)].informationPage.empty();
}

std::optional<std::int32_t> StartupOption(const SettingsSnapshot& settings,
                                          std::string_view program)
{
    return IsIntegrated(settings, program)
               ? std::optional(ReadStartupOptions(settings, program).option)
               : std::nullopt;
}

} // namespace

ProgramStatusList::ProgramStatusList(CVelmoProgramCommunicator& locator,
                                     const CINIFileHandler& settings)
    : m_locator(locator), m_settings(settings), m_list(Columns(), *this)
{}

void ProgramStatusList::Rebuild(const VersionList& latest, const SharedValues& stores)
{
    const SettingsSnapshot settings = m_settings.Snapshot();
    m_rows.clear();
    for (std::int32_t index = 0; index < kProgramCount; ++index)
    {
        if (IsListed(index))
        {
            ProgramRow& row = m_rows.emplace_back(ProgramRow{.index = index});
            row.installed = LocatedVersion(m_locator, index, stores);
            latest.Read(row);
            row.startupOption = StartupOption(settings, row.Name());
        }
    }
    m_list.RowsChanged();
    m_list.ScrollTo(m_list.SelectedPosition());
}

void ProgramStatusList::RefreshStartupOption(std::string_view displayName)
{
    for (ProgramRow& row : m_rows)
    {
        if (row.Name() == displayName)
        {
            row.startupOption = StartupOption(m_settings.Snapshot(), displayName);
        }
    }
    m_list.RowsChanged();
}

const ProgramRow* ProgramStatusList::Find(std::string_view displayName) const
{
    const auto row = std::ranges::find(m_rows, displayName, &ProgramRow::Name);
    return row != m_rows.end() ? &*row : nullptr;
}

const ProgramRow* ProgramStatusList::Selected() const
{
    const auto row = m_list.SelectedRow();
    return row ? &m_rows[*row] : nullptr;
}

std::string ProgramStatusList::Text(std::size_t row, std::size_t column) const
{
    return CellText(m_rows[row], static_cast<ProgramColumn>(column));
}

std::int32_t ProgramStatusList::CountThatNeedUpdate() const
{
    return static_cast<std::int32_t>(std::ranges::count_if(m_rows, &ProgramRow::NeedsUpdate));
}

ProgramButtons ProgramStatusList::Buttons() const
{
    const ProgramRow* row = Selected();
    if (row == nullptr)
    {
        return {{"Set &Update Options...", false},
                {"&Download", false},
                {"&Go to Update Page", false},
                {"Go to &Info Page", false}};
    }
    const std::string name = row->Name();
    const UpdateStatus status = row->Status();
    const bool demo = status == UpdateStatus::TryDemo || status == UpdateStatus::TryDemoOfUnknown;
    return {{"Set &Update Options for " + name + "...", row->startupOption.has_value()},
            {(demo ? "&Download Demo for " : "&Download Update for ") + name, true},
            {"&Go to Update Page for " + name, true},
            {"Go to &Info Page for " + name, HasInformationPage(row->index)}};
}

} // namespace velmo
