#include "equipment/EquipmentGrid.h"

#include "text/ByteSizeText.h"

#include <algorithm>
#include <span>
#include <utility>
#include <vector>

namespace velmo
{

const std::array<MarkCommand, 8> kMarkCommands{{
    {"mnuMarkAllDatabasesThatNeedUpdating", "Mark All Databases that Need Updating",
     EquipmentColumn::InstallDatabase, MarkRule::NeedUpdating},
    {"mnuMarkAllExceptUpToDateMDB",
     "Mark All Databases Except Ones that are Installed and Up to Date",
     EquipmentColumn::InstallDatabase, MarkRule::AllExceptUpToDate},
    {"mnuMarkAllPicturesThatNeedUpdating", "Mark All Pictures that Need Updating",
     EquipmentColumn::InstallPictures, MarkRule::NeedUpdating, true},
    {"mnuMarkAllExceptUpToDatePictures",
     "Mark All Pictures Except Ones that are Installed and Up to Date",
     EquipmentColumn::InstallPictures, MarkRule::AllExceptUpToDate},
    {"mnuClearAllDatabases", "Clear All Databases", EquipmentColumn::InstallDatabase,
     MarkRule::None, true},
    {"mnuClearAllPictures", "Clear All Pictures", EquipmentColumn::InstallPictures, MarkRule::None},
    {"mnuMarkAllDatabases", "Mark All Databases", EquipmentColumn::InstallDatabase, MarkRule::All,
     true},
    {"mnuMarkAllPictures", "Mark All Pictures", EquipmentColumn::InstallPictures, MarkRule::All},
}};

namespace
{

enum Form : unsigned
{
    Plain = 0,
    Merged = 1, ///< A value of the section rather than of one database.
    Hidden = 2,
    Ticks = 4,
};

struct ColumnForm
{
    const char* header;
    unsigned form = Plain;
};

constexpr std::array<ColumnForm, kEquipmentColumns> kColumnForms{{
    {"Section\r\nName", Merged},
    {"MDB\r\nEXE"},
    {"Install\r\nDatabase", Merged | Ticks},
    {"Picture\r\nEXE"},
    {"Install\r\nPictures", Merged | Ticks},
    {"Database\r\nFile\r\nSize", Merged},
    {"", Hidden},
    {"Pictures\r\nFile\r\nSize", Merged},
    {"", Hidden},
    {"Manufacturer\r\nName"},
    {"Database\r\nFile"},
    {"Database\r\nInstalled\r\nVersion"},
    {"Database\r\nLatest\r\nVersion"},
    {"Need to\r\nUpdate\r\nDatabase"},
    {"Pictures\r\nInstalled\r\nVersion", Merged},
    {"Pictures\r\nLatest\r\nVersion", Merged},
    {"Need to\r\nUpdate\r\nPictures", Merged},
    {"\r\nAC"},
    {"\r\nHP"},
    {"\r\nGSHP"},
    {"Oil\r\nFurn"},
    {"NG\r\nFurn"},
    {"Pr\r\nFurn"},
    {"NG/Pr\r\nFurn"},
    {"Oil\r\nBoil"},
    {"NG\r\nBoil"},
    {"Pr\r\nBoil"},
    {"NG/Pr\r\nBoil"},
    {"2 Sp\r\nAC"},
    {"2 Sp\r\nGSHP"},
    {"2 Sp\r\nFurn"},
    {"Wtr\r\nHtr"},
}};
static_assert(Index(EquipmentColumn::FirstKind) + kEquipmentKindKeys.size() == kEquipmentColumns);

constexpr Colour kLightGreen{192, 220, 192};
constexpr Colour kCream{255, 251, 240};
constexpr Colour kBlack{};
constexpr Colour kBlue{0, 0, 255};

std::vector<GridColumn> Columns()
{
    std::vector<GridColumn> columns;
    for (const ColumnForm& form : kColumnForms)
    {
        columns.push_back({form.header, (form.form & Hidden) != 0, (form.form & Merged) != 0,
                           (form.form & Ticks) != 0});
    }
    return columns;
}

const char* StatusText(EquipmentStatus status)
{
    switch (status)
    {
    case EquipmentStatus::Undecided:
        return "-";
    case EquipmentStatus::UpToDate:
        return "No";
    case EquipmentStatus::NeedsUpdate:
        break;
    }
    return "Yes";
}

/// The member behind a column of boxes.
TickState EquipmentRow::*BoxOf(EquipmentColumn column)
{
    return column == EquipmentColumn::InstallDatabase ? &EquipmentRow::InstallDatabase
                                                      : &EquipmentRow::InstallPictures;
}

} // namespace

EquipmentGrid::EquipmentGrid() : m_model(Columns(), *this) {}

void EquipmentGrid::Show(EquipmentRows rows)
{
    if (rows.list && rows.list == m_rows.list)
    {
        for (std::size_t row = 0; row < rows.rows.size(); ++row)
        {
            rows.rows[row].InstallDatabase = m_rows.rows[row].InstallDatabase;
            rows.rows[row].InstallPictures = m_rows.rows[row].InstallPictures;
        }
    }
    m_rows = std::move(rows);
    m_model.RowsChanged();
    RefreshSummary();
}

const EquipmentSection& EquipmentGrid::SectionOf(const EquipmentRow& row) const
{
    return m_rows.sections.at(row.section);
}

/// As long as the grid has columns: the text of each is made here and nowhere else.
std::string EquipmentGrid::Text(std::size_t row, EquipmentColumn column) const
{
    const EquipmentRow& content = m_rows.rows.at(row);
    const InstalledVersion& pictures = SectionOf(content).pictures;
    const ManufacturerSection& section = *SectionOf(content).listed;
    const ManufacturerEntry& entry = *content.listed;
    switch (column)
    {
    case EquipmentColumn::SectionName:
        return std::string(section.SectionName);
    case EquipmentColumn::DatabaseSetup:
        return section.DatabaseSetupFile;
    case EquipmentColumn::InstallDatabase:
        return {};
    case EquipmentColumn::PictureSetup:
        return section.PictureSetupFile;
    case EquipmentColumn::InstallPictures:
        return content.InstallPictures == TickState::None ? " " : "";
    case EquipmentColumn::DatabaseSize:
        return ByteSizeText(section.DatabaseSetupSize);
    case EquipmentColumn::DatabaseBytes:
        return ByteCountText(section.DatabaseSetupSize);
    case EquipmentColumn::PicturesSize:
        return ByteSizeText(section.PictureSetupSize);
    case EquipmentColumn::PicturesBytes:
        return ByteCountText(section.PictureSetupSize);
    case EquipmentColumn::Manufacturer:
        return std::string(entry.ManufacturerName);
    case EquipmentColumn::DatabaseFile:
        return std::string(entry.DatabaseFile);
    case EquipmentColumn::DatabaseInstalled:
        return content.installed.Text();
    case EquipmentColumn::DatabaseLatest:
        return std::string(entry.DatabaseLatestDate);
    case EquipmentColumn::DatabaseNeedsUpdate:
        return StatusText(content.installed.status);
    case EquipmentColumn::PicturesInstalled:
        return pictures.Text();
    case EquipmentColumn::PicturesLatest:
        return section.PicturesLatestDate.empty() ? " " : std::string(section.PicturesLatestDate);
    case EquipmentColumn::PicturesNeedUpdate:
        return StatusText(pictures.status);
    default:
        return std::string(
            entry.EquipmentKinds.at(Index(column) - Index(EquipmentColumn::FirstKind)));
    }
}

std::string EquipmentGrid::Text(std::size_t row, std::size_t column) const
{
    return Text(row, static_cast<EquipmentColumn>(column));
}

TickState EquipmentGrid::Tick(std::size_t row, std::size_t column) const
{
    return m_model.Columns().at(column).ticks
               ? m_rows.rows.at(row).*BoxOf(static_cast<EquipmentColumn>(column))
               : TickState::None;
}

GridLook EquipmentGrid::Look(std::size_t row) const
{
    const EquipmentRow& content = m_rows.rows.at(row);
    const bool database = content.installed.status == EquipmentStatus::NeedsUpdate;
    const bool pictures = SectionOf(content).pictures.status == EquipmentStatus::NeedsUpdate;
    return {content.section % 2 == 0 ? kLightGreen : kCream, pictures && !database ? kBlue : kBlack,
            database || pictures};
}

GridSpan EquipmentGrid::Group(std::size_t row) const
{
    return SectionOf(m_rows.rows.at(row)).rows;
}

std::string EquipmentGrid::Tip(std::size_t row, std::size_t column) const
{
    const EquipmentRow& content = m_rows.rows.at(row);
    switch (static_cast<EquipmentColumn>(column))
    {
    case EquipmentColumn::DatabaseInstalled:
    case EquipmentColumn::DatabaseNeedsUpdate:
        return content.installed.Reason();
    case EquipmentColumn::PicturesInstalled:
    case EquipmentColumn::PicturesNeedUpdate:
        return content.InstallPictures == TickState::None ? "This section has no pictures."
                                                          : SectionOf(content).pictures.Reason();
    default:
        return {};
    }
}

bool EquipmentGrid::Toggle(std::size_t row, std::size_t column)
{
    const TickState now = Tick(row, column);
    if (now == TickState::None)
    {
        return false;
    }
    m_rows.rows[row].*BoxOf(static_cast<EquipmentColumn>(column)) =
        now == TickState::Ticked ? TickState::Unticked : TickState::Ticked;
    m_model.CellChanged(row, column);
    RefreshSummary();
    return true;
}

bool EquipmentGrid::IsWanted(const EquipmentRow& row, const MarkCommand& command) const
{
    const InstalledVersion& installed = command.column == EquipmentColumn::InstallDatabase
                                            ? row.installed
                                            : SectionOf(row).pictures;
    return installed.status == EquipmentStatus::NeedsUpdate ||
           (command.rule == MarkRule::AllExceptUpToDate &&
            installed.state == InstalledVersion::State::None);
}

void EquipmentGrid::Run(const MarkCommand& command)
{
    const bool ticksAll = command.rule == MarkRule::All;
    const bool clearsAll = command.rule == MarkRule::None;
    for (const EquipmentSection& section : m_rows.sections)
    {
        const std::span rows(&m_rows.rows[section.rows.first], section.rows.count);
        if (!ticksAll && !clearsAll &&
            std::ranges::none_of(rows, [&](const auto& row) { return IsWanted(row, command); }))
        {
            continue;
        }
        for (EquipmentRow& row : rows)
        {
            TickState& box = row.*BoxOf(command.column);
            box = box == TickState::None ? box
                  : clearsAll            ? TickState::Unticked
                                         : TickState::Ticked;
        }
    }
    m_model.ColumnChanged(Index(command.column));
    RefreshSummary();
}

SetupFiles EquipmentGrid::Ticked(EquipmentColumn column) const
{
    const bool isDatabase = column == EquipmentColumn::InstallDatabase;
    SetupFiles setups;
    for (const EquipmentRow& row : m_rows.rows)
    {
        if (row.*BoxOf(column) == TickState::Ticked)
        {
            const ManufacturerSection& section = *SectionOf(row).listed;
            setups.Add(isDatabase ? section.DatabaseSetupFile : section.PictureSetupFile,
                       isDatabase ? section.DatabaseSetupSize : section.PictureSetupSize);
        }
    }
    return setups;
}

std::string EquipmentGrid::Summary() const
{
    const SetupFiles databases = Ticked(EquipmentColumn::InstallDatabase);
    const SetupFiles pictures = Ticked(EquipmentColumn::InstallPictures);
    return "DB: " + std::to_string(databases.files.Count()) +
           ", Pic: " + std::to_string(pictures.files.Count()) + ", " +
           ByteSizeText(databases.bytes + pictures.bytes);
}

void EquipmentGrid::RefreshSummary() const
{
    if (m_refreshed)
    {
        m_refreshed();
    }
}

} // namespace velmo
