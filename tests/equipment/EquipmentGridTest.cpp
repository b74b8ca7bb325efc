#include "equipment/EquipmentGrid.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <tuple>

namespace velmo
{
namespace
{

constexpr auto kOld = EquipmentStatus::NeedsUpdate;
constexpr auto kFine = EquipmentStatus::UpToDate;

constexpr const char* kList =
    "[A]\r\nMDBSetupFileSize=1000\r\nPictureSetupFilename=Apic.exe\r\nPictureSetupFileSize=2000\r\n"
    "1MDBFilename=a1\r\n2MDBFilename=a2\r\n"
    "[B]\r\nMDBSetupFileSize=1000\r\nPictureSetupFilename=bpic.exe\r\nPictureSetupFileSize=2000\r\n"
    "1MDBFilename=b1\r\n2MDBFilename=b2\r\n"
    "[C]\r\nMDBSetupFileSize=1000\r\n1MDBFilename=c1\r\n"
    "[D]\r\nMDBSetupFileSize=1000\r\nPictureSetupFilename=dpic.exe\r\nPictureSetupFileSize=2000\r\n"
    "1MDBFilename=d1\r\n"
    "[E]\r\nMDBSetupFileSize=1000\r\nPictureSetupFilename=dpic.exe\r\nPictureSetupFileSize=7\r\n"
    "1MDBFilename=e1\r\n";

InstalledVersion Installed(EquipmentStatus status,
                           InstalledVersion::State state = InstalledVersion::State::Dated)
{
    InstalledVersion installed;
    installed.state = state;
    installed.dateText = "1/1/2020";
    installed.status = status;
    return installed;
}

/// What is installed of the databases, in the order of the list, and of its sections' pictures.
const InstalledVersion kDatabases[] = {Installed(kFine), Installed(kOld),  {},
                                       Installed(kFine), Installed(kFine), Installed(kFine),
                                       Installed(kFine)};
const InstalledVersion kPictures[] = {Installed(kOld),
                                      {},
                                      {},
                                      Installed(kOld, InstalledVersion::State::OfUnknownAge),
                                      Installed(kFine)};

EquipmentRows SampleRows()
{
    EquipmentRows shown;
    shown.list = std::make_shared<const ManufacturerList>(ParseManufacturerList(kList, ""));
    for (const ManufacturerSection& section : shown.list->sections)
    {
        EquipmentRow row;
        row.section = shown.sections.size();
        row.InstallPictures =
            section.PictureSetupFile.empty() ? TickState::None : TickState::Unticked;
        shown.sections.push_back(
            {&section, kPictures[row.section], {shown.rows.size(), section.entries.size()}});
        for (const ManufacturerEntry& entry : section.entries)
        {
            row.listed = &entry;
            row.installed = kDatabases[shown.rows.size()];
            shown.rows.push_back(row);
        }
    }
    return shown;
}

class EquipmentGridTest : public testing::Test
{
  protected:
    EquipmentGridTest() { m_grid.Show(SampleRows()); }

    void Run(std::string_view name)
    {
        const auto command = std::ranges::find(kMarkCommands, name, &MarkCommand::name);
        ASSERT_NE(command, kMarkCommands.end());
        m_grid.Run(*command);
    }

    /// "x" ticked, "." unticked, "-" no box, from the first row to the last.
    [[nodiscard]] std::string Boxes(EquipmentColumn column) const
    {
        std::string boxes;
        for (std::size_t row = 0; row < m_shown.RowCount(); ++row)
        {
            boxes += "-.x"[static_cast<std::size_t>(m_shown.Tick(row, Index(column)))];
        }
        return boxes;
    }

    EquipmentGrid m_grid;
    const GridSource& m_shown = m_grid.Model().Rows();
};

TEST_F(EquipmentGridTest, EachColumnHasItsHeaderAndForm)
{
    std::string columns;
    for (const GridColumn& column : m_grid.Model().Columns())
    {
        // m: merged, t: with boxes, h: hidden.
        columns += column.header + (column.merged ? " m" : "") + (column.ticks ? " t" : "") +
                   (column.hidden ? " h" : "") + "; ";
    }
    for (std::size_t at = 0; (at = columns.find("\r\n")) != std::string::npos;)
    {
        columns.replace(at, 2, "|");
    }
    EXPECT_EQ(columns,
              "Section|Name m; MDB|EXE; Install|Database m t; Picture|EXE; Install|Pictures m t; "
              "Database|File|Size m;  h; Pictures|File|Size m;  h; Manufacturer|Name; "
              "Database|File; Database|Installed|Version; Database|Latest|Version; "
              "Need to|Update|Database; Pictures|Installed|Version m; Pictures|Latest|Version m; "
              "Need to|Update|Pictures m; |AC; |HP; |GSHP; Oil|Furn; NG|Furn; Pr|Furn; "
              "NG/Pr|Furn; Oil|Boil; NG|Boil; Pr|Boil; NG/Pr|Boil; 2 Sp|AC; 2 Sp|GSHP; "
              "2 Sp|Furn; Wtr|Htr; ");
}

TEST_F(EquipmentGridTest, TheMenuHasTheCommandsInGroups)
{
    std::string menu;
    for (const MarkCommand& command : kMarkCommands)
    {
        menu += command.beginsGroup ? "-\n" : "";
        menu += std::string(command.name) + ": " + std::string(command.caption) + "\n";
    }
    EXPECT_EQ(menu, "mnuMarkAllDatabasesThatNeedUpdating: Mark All Databases that Need Updating\n"
                    "mnuMarkAllExceptUpToDateMDB: Mark All Databases Except Ones that are "
                    "Installed and Up to Date\n-\n"
                    "mnuMarkAllPicturesThatNeedUpdating: Mark All Pictures that Need Updating\n"
                    "mnuMarkAllExceptUpToDatePictures: Mark All Pictures Except Ones that are "
                    "Installed and Up to Date\n-\n"
                    "mnuClearAllDatabases: Clear All Databases\n"
                    "mnuClearAllPictures: Clear All Pictures\n-\n"
                    "mnuMarkAllDatabases: Mark All Databases\n"
                    "mnuMarkAllPictures: Mark All Pictures\n");
}

TEST_F(EquipmentGridTest, CommandsTickTheBoxesOfTheirRuleAndSection)
{
    const std::tuple<const char*, const char*, const char*> cases[] = {
        {"mnuMarkAllDatabasesThatNeedUpdating", "xx.....", "....-.."},
        {"mnuMarkAllExceptUpToDateMDB", "xxxx...", "....-.."},
        {"mnuMarkAllPicturesThatNeedUpdating", ".......", "xx..-x."},
        {"mnuMarkAllExceptUpToDatePictures", ".......", "xxxx-x."},
        {"mnuMarkAllDatabases", "xxxxxxx", "....-.."},
        {"mnuMarkAllPictures", ".......", "xxxx-xx"},
    };
    for (const auto& [name, databases, pictures] : cases)
    {
        SCOPED_TRACE(name);
        Run(name);
        EXPECT_EQ(Boxes(EquipmentColumn::InstallDatabase), databases);
        EXPECT_EQ(Boxes(EquipmentColumn::InstallPictures), pictures);
        Run("mnuClearAllDatabases");
        Run("mnuClearAllPictures");
    }
    EXPECT_EQ(Boxes(EquipmentColumn::InstallDatabase), ".......");
    EXPECT_EQ(Boxes(EquipmentColumn::InstallPictures), "....-..");
}

TEST_F(EquipmentGridTest, TheUserTicksOneCellOfTheBoxColumnsOnlyAndMarkingLeavesItTicked)
{
    for (const char* boxes : {"......x", ".......", "......x"})
    {
        EXPECT_TRUE(m_grid.Toggle(6, Index(EquipmentColumn::InstallDatabase)));
        EXPECT_EQ(Boxes(EquipmentColumn::InstallDatabase), boxes);
    }
    EXPECT_FALSE(m_grid.Toggle(4, Index(EquipmentColumn::InstallPictures)));
    EXPECT_FALSE(m_grid.Toggle(0, Index(EquipmentColumn::SectionName)));
    Run("mnuMarkAllDatabasesThatNeedUpdating");
    EXPECT_EQ(Boxes(EquipmentColumn::InstallDatabase), "xx....x");
}

TEST_F(EquipmentGridTest, ASetupCountsOnceHoweverManyOfItsRowsAreTicked)
{
    int refreshes = 0;
    m_grid.ObserveSummary([&] { ++refreshes; });
    EXPECT_EQ(m_grid.Summary(), "DB: 0, Pic: 0, 0 Bytes");
    Run("mnuMarkAllDatabasesThatNeedUpdating");
    SetupFiles databases = m_grid.Ticked(EquipmentColumn::InstallDatabase);
    EXPECT_EQ(databases.files.Item(1)->FileName, "a.exe");
    EXPECT_EQ(databases.bytes, 1000);
    Run("mnuMarkAllPictures");
    EXPECT_EQ(m_grid.Ticked(EquipmentColumn::InstallPictures).files.Item(1)->FileName, "apic.exe");
    EXPECT_EQ(m_grid.Summary(), "DB: 1, Pic: 3, 7 KB") << "sections D and E share theirs";
    m_grid.Toggle(0, Index(EquipmentColumn::InstallDatabase));
    EXPECT_EQ(refreshes, 3);
    m_grid.Show(SampleRows());
    EXPECT_EQ(m_grid.Summary(), "DB: 0, Pic: 0, 0 Bytes");
    EXPECT_EQ(refreshes, 4);
}

TEST_F(EquipmentGridTest, SectionsAlternateInColourAndWhatNeedsAnUpdateStandsOut)
{
    constexpr Colour kGreen{192, 220, 192};
    constexpr Colour kCream{255, 251, 240};
    constexpr Colour kBlue{0, 0, 255};
    const GridLook looks[] = {
        {kGreen, kBlue, true}, {kGreen, {}, true},    {kCream, {}, false}, {kCream, {}, false},
        {kGreen, {}, false},   {kCream, kBlue, true}, {kGreen, {}, false},
    };
    for (std::size_t i = 0; i < std::size(looks); ++i)
    {
        EXPECT_EQ(m_shown.Look(i), looks[i]) << i;
    }
    EXPECT_EQ(m_shown.Group(1), (GridSpan{0, 2}));
    EXPECT_EQ(m_shown.Group(4), (GridSpan{4, 1}));
    EXPECT_EQ(m_grid.Rows().DatabasesThatNeedUpdate(), 1);
    EXPECT_EQ(m_grid.Rows().PicturesThatNeedUpdate(), 2);
}

} // namespace
} // namespace velmo
