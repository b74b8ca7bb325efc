#include "equipment/EquipmentGrid.h"

#include "download/ByteSizeText.h"
#include "equipment/ManufacturerEntry.h"
#include "settings/LenientNumber.h"

#include <algorithm>
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

constexpr Colour kWhite{255, 255, 255};
constexpr Colour kLightGreen{192, 220, 192};
constexpr Colour kCream{255, 251, 240};
constexpr Colour kBlue{0, 0, 255};

/// The columns that belong to a column of boxes.
struct TickedColumns
{
    EquipmentColumn setup;
    EquipmentColumn bytes;
    EquipmentColumn installed;
    EquipmentColumn needsUpdate;
};

constexpr TickedColumns kDatabaseColumns{
    EquipmentColumn::DatabaseSetup, EquipmentColumn::DatabaseBytes,
    EquipmentColumn::DatabaseInstalled, EquipmentColumn::DatabaseNeedsUpdate};
constexpr TickedColumns kPictureColumns{
    EquipmentColumn::PictureSetup, EquipmentColumn::PicturesBytes,
    EquipmentColumn::PicturesInstalled, EquipmentColumn::PicturesNeedUpdate};

const TickedColumns& ColumnsOf(EquipmentColumn ticks)
{
    return ticks == EquipmentColumn::InstallDatabase ? kDatabaseColumns : kPictureColumns;
}

std::vector<GridColumn> Columns()
{
    std::vector<GridColumn> columns;
    for (const ColumnForm& form : kColumnForms)
    {
        columns.push_back({form.header, 0, (form.form & Hidden) != 0, (form.form & Merged) != 0,
                           (form.form & Ticks) != 0});
    }
    return columns;
}

std::string SizeText(const std::string& bytes)
{
    return ByteSizeText(LenientNumber(bytes));
}

std::vector<GridCell> Cells(const ManufacturerEntry& entry)
{
    const bool hasPictures = entry.InstallPictures != TickState::None;
    std::vector<GridCell> cells{
        {entry.SectionName},
        {entry.DatabaseSetupFile},
        {"", entry.InstallDatabase},
        {entry.PictureSetupFile},
        {hasPictures ? "" : " ", entry.InstallPictures},
        {SizeText(entry.DatabaseSetupSize)},
        {entry.DatabaseSetupSize},
        {SizeText(entry.PictureSetupSize)},
        {entry.PictureSetupSize},
        {entry.ManufacturerName},
        {entry.DatabaseFile},
        {entry.DatabaseInstalledDate},
        {entry.DatabaseLatestDate},
        {entry.DatabaseNeedsUpdate},
        {entry.PicturesInstalledDate},
        {entry.PicturesLatestDate},
        {entry.PicturesNeedUpdate},
    };
    cells.reserve(kEquipmentColumns);
    for (const std::string& kind : entry.EquipmentKinds)
    {
        cells.push_back({kind});
    }
    return cells;
}

DownloadSelection Ticked(const GridModel& model, EquipmentColumn ticks)
{
    const TickedColumns& columns = ColumnsOf(ticks);
    DownloadSelection selection;
    for (std::size_t row = 0; row < model.Rows().size(); ++row)
    {
        const std::string& file = model.Text(row, Index(columns.setup));
        if (model.Tick(row, Index(ticks)) != TickState::Ticked || file.empty())
        {
            continue;
        }
        const double bytes = LenientNumber(model.Text(row, Index(columns.bytes)));
        if (selection.files.Add(file, bytes, file) != nullptr)
        {
            selection.bytes += bytes;
        }
    }
    return selection;
}

} // namespace

EquipmentGrid::EquipmentGrid() : m_model(Columns()), m_band(kWhite)
{
    RefreshSummary();
}

void EquipmentGrid::Clear()
{
    m_previousSection.clear();
    m_band = kWhite;
    m_model.Clear();
}

void EquipmentGrid::AddRow(const ManufacturerEntry& entry)
{
    if (entry.SectionName != m_previousSection)
    {
        m_band = m_band == kLightGreen ? kCream : kLightGreen;
        m_previousSection = entry.SectionName;
    }
    GridRow row{Cells(entry), m_band, {}, false};
    const bool databaseNeedsUpdate = entry.DatabaseNeedsUpdate == "Yes";
    if (databaseNeedsUpdate || entry.PicturesNeedUpdate == "Yes")
    {
        row.bold = true;
        row.textColour = databaseNeedsUpdate ? Colour{} : kBlue;
    }
    m_model.Append(std::move(row));
}

const std::string& EquipmentGrid::Text(std::size_t row, EquipmentColumn column) const
{
    return m_model.Text(row, Index(column));
}

bool EquipmentGrid::Toggle(std::size_t row, std::size_t column)
{
    const bool isTicked = m_model.Tick(row, column) == TickState::Ticked;
    const bool changed =
        m_model.SetTick(row, column, isTicked ? TickState::Unticked : TickState::Ticked);
    if (changed)
    {
        RefreshSummary();
    }
    return changed;
}

void EquipmentGrid::Run(const MarkCommand& command)
{
    const auto everyRow = [](std::size_t) { return true; };
    switch (command.rule)
    {
    case MarkRule::All:
        m_model.SetTicks(Index(command.column), TickState::Ticked, everyRow);
        break;
    case MarkRule::None:
        m_model.SetTicks(Index(command.column), TickState::Unticked, everyRow);
        break;
    case MarkRule::NeedUpdating:
    case MarkRule::AllExceptUpToDate:
        TickSections(command);
        break;
    }
    RefreshSummary();
}

bool EquipmentGrid::IsWanted(std::size_t row, const MarkCommand& command) const
{
    const TickedColumns& columns = ColumnsOf(command.column);
    return Text(row, columns.needsUpdate) == "Yes" ||
           (command.rule == MarkRule::AllExceptUpToDate && Text(row, columns.installed) == "-");
}

std::size_t EquipmentGrid::EndOfSection(std::size_t row) const
{
    const std::string& section = Text(row, EquipmentColumn::SectionName);
    std::size_t end = row;
    while (end < m_model.Rows().size() && Text(end, EquipmentColumn::SectionName) == section)
    {
        ++end;
    }
    return end;
}

void EquipmentGrid::TickSections(const MarkCommand& command)
{
    std::vector<bool> wanted(m_model.Rows().size());
    for (std::size_t first = 0; first < wanted.size();)
    {
        const std::size_t end = EndOfSection(first);
        bool any = false;
        for (std::size_t row = first; row < end; ++row)
        {
            any = any || IsWanted(row, command);
        }
        std::fill(wanted.begin() + static_cast<std::ptrdiff_t>(first),
                  wanted.begin() + static_cast<std::ptrdiff_t>(end), any);
        first = end;
    }
    m_model.SetTicks(Index(command.column), TickState::Ticked,
                     [&](std::size_t row) { return wanted[row]; });
}

DownloadSelection EquipmentGrid::TickedDatabases() const
{
    return Ticked(m_model, EquipmentColumn::InstallDatabase);
}

DownloadSelection EquipmentGrid::TickedPictures() const
{
    return Ticked(m_model, EquipmentColumn::InstallPictures);
}

void EquipmentGrid::RefreshSummary()
{
    const DownloadSelection databases = TickedDatabases();
    const DownloadSelection pictures = TickedPictures();
    m_summary = "DB: " + std::to_string(databases.files.Count()) +
                ", Pic: " + std::to_string(pictures.files.Count()) + ", " +
                ByteSizeText(databases.bytes + pictures.bytes);
    if (m_refreshed)
    {
        m_refreshed();
    }
}

} // namespace velmo
