#include "equipment/EquipmentList.h"

#include "catalogue/CVelmoProgramCommunicator.h"
#include "catalogue/LocatorTable.h"
#include "controls/UserPrompts.h"
#include "equipment/InstalledDatabase.h"
#include "equipment/InstalledPictures.h"
#include "equipment/PlainFileName.h"
#include "equipment/UnitedStatesDate.h"
#include "platform/MFile.h"
#include "settings/DiagnosticLog.h"

#include <algorithm>
#include <unordered_set>
#include <utility>

namespace velmo
{
namespace
{

namespace MFile = platform::MFile;

constexpr const char* kNothingTicked =
    "You must check the box for at least one database or picture before you can install updates.";
constexpr const char* kNothingTickedTitle = "No Boxes Checked";

/// Whether the system may take the name for a file that is spelt otherwise, beyond the case of A to Z.
bool MayHaveOtherSpellings(const std::string& name)
{
    return std::ranges::any_of(
        name, [](char c) { return c == '~' || static_cast<unsigned char>(c) >= 0x80U; });
}

/// Switches redrawing off while it lives.
class RedrawOff
{
  public:
    explicit RedrawOff(GridModel& model) : m_model(model) { m_model.SetRedraw(false); }
    RedrawOff(const RedrawOff&) = delete;
    RedrawOff& operator=(const RedrawOff&) = delete;
    ~RedrawOff() { m_model.SetRedraw(true); }

  private:
    GridModel& m_model;
};

} // namespace

/// Looks at what is installed in the data folder. Its files are listed once, since most databases of
/// a list are not there and asking for each of them would take longer than all the rest.
class EquipmentList::Inspection
{
  public:
    Inspection(std::string dataFolder, std::chrono::year thisYear, DiagnosticLog& log)
        : m_dataFolder(std::move(dataFolder)), m_thisYear(thisYear), m_log(log)
    {
        if (!m_dataFolder.empty())
        {
            for (const std::string& name : MFile::FileNames(m_dataFolder))
            {
                m_fileNames.insert(LowerCase(name));
            }
        }
    }

    [[nodiscard]] InstalledPictures Pictures(const CSectionData& section) const
    {
        const auto group = ListedPictures(section, m_dataFolder + "EquipPic\\");
        if (!group)
        {
            return {};
        }
        if (m_dataFolder.empty() || !IsPlain(section.Name))
        {
            return {"-", group->latestDate.empty() ? " " : group->latestDate, "-"};
        }
        return InspectPictures(*group, m_thisYear, m_log);
    }

    [[nodiscard]] InstalledDatabase Database(const ManufacturerEntry& entry) const
    {
        const std::string& file = entry.DatabaseFile;
        const bool mayExist = MayHaveOtherSpellings(file) || m_fileNames.contains(LowerCase(file));
        if (m_dataFolder.empty() || !IsPlain(file) || !mayExist)
        {
            return {};
        }
        return InspectDatabase(m_dataFolder + file, entry.DatabaseLatestDate, m_thisYear, m_log);
    }

  private:
    [[nodiscard]] bool IsPlain(const std::string& name) const
    {
        if (!IsPlainFileName(name))
        {
            m_log.Write("The manufacturer list's name \"" + name +
                        "\" is no plain file name and is not looked for");
            return false;
        }
        return true;
    }

    std::string m_dataFolder; ///< Empty: not known.
    std::chrono::year m_thisYear;
    DiagnosticLog& m_log;
    std::unordered_set<std::string> m_fileNames; ///< In lower case.
};

EquipmentList::EquipmentList(std::string listPath, std::string defaultAddress,
                             CVelmoProgramCommunicator& locator, DiagnosticLog& log, Clock clock)
    : m_listPath(std::move(listPath)), m_defaultAddress(std::move(defaultAddress)),
      m_locator(locator), m_log(log), m_clock(std::move(clock))
{}

void EquipmentList::Refresh(ServerValues values)
{
    if (MFile::FileExists(m_listPath))
    {
        auto list = ReadManufacturerList(m_listPath, m_defaultAddress, values, m_log);
        if (list)
        {
            m_list = std::move(list).Value();
            Fill();
            return;
        }
        m_log.Failure("Reading " + m_listPath, list.Failure());
    }
    m_grid.RefreshSummary();
}

void EquipmentList::InspectAgain()
{
    if (m_list)
    {
        Fill();
    }
}

void EquipmentList::Fill()
{
    GridModel& model = m_grid.Model();
    {
        const GridPosition position = model.Position();
        const RedrawOff redrawOff(model);
        m_grid.Clear();
        AddRows();
        model.MoveTo(position);
        model.SizeToContents();
    }
    m_grid.RefreshSummary();
}

void EquipmentList::AddRows()
{
    const std::chrono::year_month_day today(LocalDay(m_clock()));
    const Inspection inspection(m_locator.FolderName(locator_number::kCommonFolder), today.year(),
                                m_log);
    m_databases = 0;
    m_pictures = 0;
    for (const CSectionData& section : m_list->sections)
    {
        const InstalledPictures pictures = inspection.Pictures(section);
        std::size_t number = 1;
        for (; auto entry = ListedDatabase(section, number); ++number)
        {
            InstalledDatabase database = inspection.Database(*entry);
            entry->DatabaseInstalledDate = std::move(database.installedDate);
            entry->DatabaseNeedsUpdate = std::move(database.needsUpdate);
            entry->PicturesInstalledDate = pictures.installedDate;
            entry->PicturesNeedUpdate = pictures.needsUpdate;
            m_databases += entry->DatabaseNeedsUpdate == "Yes" ? 1 : 0;
            m_grid.AddRow(*entry);
        }
        m_pictures += number > 1 && pictures.needsUpdate == "Yes" ? 1 : 0;
    }
}

std::optional<InstallOrder> EquipmentList::PrepareInstall(UserPrompts& prompts) const
{
    InstallOrder order{m_list ? m_list->server : EquipmentServer(), m_grid.TickedDatabases(),
                       m_grid.TickedPictures()};
    if (order.databases.files.Count() + order.pictures.files.Count() == 0)
    {
        prompts.Notify(PromptIcon::Information, kNothingTicked, kNothingTickedTitle);
        return std::nullopt;
    }
    return order;
}

} // namespace velmo
