#include "equipment/EquipmentList.h"

#include "catalogue/CVelmoProgramCommunicator.h"
#include "catalogue/LocatorTable.h"
#include "controls/UserPrompts.h"
#include "platform/ErrorCode.h"
#include "platform/MFile.h"
#include "platform/UserLocale.h"
#include "settings/DiagnosticLog.h"
#include "text/PlainFileName.h"
#include "text/TextCase.h"

#include <algorithm>
#include <unordered_set>
#include <utility>

namespace velmo
{
namespace
{

namespace MFile = platform::MFile;

constexpr const char* kPictures = "EquipPic\\"; ///< Below the data folder.

constexpr const char* kNothingTicked =
    "You must check the box for at least one database or picture before you can install updates.";
constexpr const char* kNothingTickedTitle = "No Boxes Checked";

/// The lines that one look at what is installed leaves in the log: the first of them, and how many more.
class BoundedLog
{
  public:
    explicit BoundedLog(DiagnosticLog& log) : m_log(log) {}
    BoundedLog(const BoundedLog&) = delete;
    BoundedLog& operator=(const BoundedLog&) = delete;
    ~BoundedLog()
    {
        if (m_count > kMost)
        {
            m_log.Write("The same of " + std::to_string(m_count - kMost) + " more");
        }
    }

    void Write(const std::string& line)
    {
        if (++m_count <= kMost)
        {
            m_log.Write(line);
        }
    }

  private:
    static constexpr std::size_t kMost = 20;

    DiagnosticLog& m_log;
    std::size_t m_count = 0;
};

/// The names, which are found in any case of A to Z.
std::unordered_set<std::string> InLowerCase(const std::vector<std::string>& names)
{
    std::unordered_set<std::string> lower;
    for (const std::string& name : names)
    {
        lower.insert(LowerCase(name));
    }
    return lower;
}

/// Whether a folder may have the name: the system may also take it for one that is spelt otherwise,
/// beyond the case of A to Z.
bool MayBeIn(const std::unordered_set<std::string>& lowerNames, const std::string& name)
{
    return std::ranges::any_of(
               name, [](char c) { return c == '~' || static_cast<unsigned char>(c) >= 0x80U; }) ||
           lowerNames.contains(LowerCase(name));
}

/// Looks at what is installed in the data folder. Its files and its folders of pictures are listed once,
/// since most of what a list names is not there and asking for each would take longer than all the rest.
class Inspection
{
  public:
    Inspection(std::string dataFolder, std::chrono::year thisYear, DiagnosticLog& log)
        : m_dataFolder(std::move(dataFolder)), m_thisYear(thisYear), m_log(log), m_findings(log)
    {
        if (!m_dataFolder.empty())
        {
            m_files = Listed(m_dataFolder, MFile::FileNames);
            m_pictureFolders = Listed(m_dataFolder + kPictures, MFile::FolderNames);
        }
    }

    [[nodiscard]] EquipmentRows Of(std::shared_ptr<const ManufacturerList> list)
    {
        EquipmentRows found;
        for (const ManufacturerSection& section : list->sections)
        {
            if (!section.entries.empty())
            {
                Add(section, found);
            }
        }
        found.list = std::move(list);
        return found;
    }

  private:
    using Names = Result<std::vector<std::string>>;

    /// None, with a line in the log, of a folder that is there and cannot be listed.
    [[nodiscard]] std::unordered_set<std::string> Listed(const std::string& folder,
                                                         Names (*namesIn)(std::string_view))
    {
        const Names names = namesIn(folder);
        if (!names && names.Failure().code != error_code::kFolderMissing)
        {
            m_log.Failure("Listing " + folder, names.Failure());
        }
        return names ? InLowerCase(names.Value()) : std::unordered_set<std::string>();
    }

    void Add(const ManufacturerSection& section, EquipmentRows& found)
    {
        EquipmentRow row;
        row.section = found.sections.size();
        row.InstallPictures =
            section.PictureSetupFile.empty() ? TickState::None : TickState::Unticked;
        found.sections.push_back(
            {&section, Pictures(section), {found.rows.size(), section.entries.size()}});
        for (const ManufacturerEntry& entry : section.entries)
        {
            row.listed = &entry;
            row.installed = Database(entry);
            found.rows.push_back(row);
        }
    }

    [[nodiscard]] InstalledVersion Pictures(const ManufacturerSection& section)
    {
        if (section.PictureSetupFile.empty() || m_dataFolder.empty() ||
            !IsPlain(section.SectionName))
        {
            return {};
        }
        const std::string name(section.SectionName);
        if (!MayBeIn(m_pictureFolders, name))
        {
            return {};
        }
        return InspectPictures({name, m_dataFolder + kPictures + name + "\\",
                                section.PicturesLatestDate, section.DateCheckerPictureFile},
                               m_thisYear, m_log);
    }

    [[nodiscard]] InstalledVersion Database(const ManufacturerEntry& entry)
    {
        const std::string file(entry.DatabaseFile);
        InstalledVersion installed;
        if (!IsPlain(file))
        {
            installed.failure = "The list's name of the file is no plain file name.";
        }
        else if (m_dataFolder.empty())
        {
            installed.failure = "The folder of the databases is not known.";
        }
        else if (MayBeIn(m_files, file))
        {
            installed = InspectDatabase(m_dataFolder + file, entry.DatabaseLatestDate, m_thisYear);
            if (!installed.failure.empty())
            {
                m_findings.Write("Reading the release date of " + m_dataFolder + file + ": " +
                                 installed.failure);
            }
        }
        return installed;
    }

    [[nodiscard]] bool IsPlain(std::string_view name)
    {
        const bool isPlain = IsPlainFileName(name);
        if (!isPlain)
        {
            m_findings.Write("The manufacturer list's name \"" + std::string(name) +
                             "\" is no plain file name and is not looked for");
        }
        return isPlain;
    }

    std::string m_dataFolder; ///< Empty: not known.
    std::chrono::year m_thisYear;
    DiagnosticLog& m_log;
    BoundedLog m_findings;
    std::unordered_set<std::string> m_files;
    std::unordered_set<std::string> m_pictureFolders;
};

bool IsOutdated(const InstalledVersion& installed)
{
    return installed.status == EquipmentStatus::NeedsUpdate;
}

} // namespace

std::int32_t EquipmentRows::DatabasesThatNeedUpdate() const
{
    return static_cast<std::int32_t>(
        std::ranges::count_if(rows, IsOutdated, &EquipmentRow::installed));
}

std::int32_t EquipmentRows::PicturesThatNeedUpdate() const
{
    return static_cast<std::int32_t>(
        std::ranges::count_if(sections, IsOutdated, &EquipmentSection::pictures));
}

EquipmentList::EquipmentList(CVelmoProgramCommunicator& locator, DiagnosticLog& log, Clock clock)
    : m_locator(locator), m_log(log), m_clock(std::move(clock))
{}

void EquipmentList::InspectAgain()
{
    if (m_grid.Rows().list)
    {
        Show(m_grid.Rows().list, SharedValues::Read());
    }
}

void EquipmentList::Show(std::shared_ptr<const ManufacturerList> list, const SharedValues& stores)
{
    const std::chrono::year_month_day today(platform::LocalDay(m_clock()));
    Inspection inspection(m_locator.FolderName(kCommonFolderNumber, stores), today.year(), m_log);
    m_grid.Show(inspection.Of(std::move(list)));
}

std::optional<InstallOrder> EquipmentList::PrepareInstall(UserPrompts& prompts) const
{
    SetupFiles databases = m_grid.Ticked(EquipmentColumn::InstallDatabase);
    SetupFiles pictures = m_grid.Ticked(EquipmentColumn::InstallPictures);
    if (databases.files.Count() + pictures.files.Count() == 0)
    {
        prompts.Notify(PromptIcon::Information, kNothingTicked, kNothingTickedTitle);
        return std::nullopt;
    }
    const ManufacturerList& list = *m_grid.Rows().list;
    databases.title = "Databases to install";
    databases.folder = list.databaseFolder;
    pictures.title = "Picture groups to install";
    pictures.folder = list.pictureFolder;
    InstallOrder order{list.serverAddress, {}};
    order.setups.push_back(std::move(databases));
    order.setups.push_back(std::move(pictures));
    return order;
}

} // namespace velmo
