#include "equipment/EquipmentGrid.h"

#include "equipment/ManufacturerList.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <sstream>
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

/// "Section: file manufacturer date, file ..." of each section, one a line.
std::string Databases(std::string_view list)
{
    std::string text;
    for (const ManufacturerSection& section : ParseManufacturerList(list, "").sections)
    {
        text += std::string(section.SectionName) + ":";
        for (const ManufacturerEntry& entry : section.entries)
        {
            text += " " + std::string(entry.DatabaseFile) + "(" +
                    std::string(entry.ManufacturerName) + "," +
                    std::string(entry.DatabaseLatestDate) + ")";
        }
        text += "\n";
    }
    return text;
}

TEST(ManufacturerListTest, DatabasesAreNumberedFromOneWithoutGapsInAnyOrder)
{
    const std::pair<const char*, const char*> cases[] = {
        {"[A]\n2MDBFilename=b\n1MDBFilename=a\n2ReleaseDate=d\n1ManufacturerName=m\n",
         "A: a(m,) b(A,d)\n"},
        {"[A]\n1MDBFilename=a\n3MDBFilename=c\n", "A: a(A,)\n"},
        {"[A]\n1MDBFilename=a\n2MDBFilename=\n3MDBFilename=c\n", "A: a(A,)\n"},
        {"[A]\n01MDBFilename=a\n0MDBFilename=a\n-1MDBFilename=a\nMDBFilename=a\n", "A:\n"},
        {"[A]\n2MDBFilename=b\n", "A:\n"},
        {"[A]\n1mdbfilename=first\n1MDBFilename=second\n", "A: first(A,)\n"},
        {"[A]\n1MDBFilename=a\n4294967297MDBFilename=b\n99999999999MDBFilename=c\n", "A: a(A,)\n"},
        {"1MDBFilename=before\n[A]\n1MDBFilename=a\n[B]\n1MDBFilename=b=c\n[a]\n1MDBFilename=d\n",
         "A: a(A,)\nB: b=c(B,)\n"},
        {"[A]\n1MDBFilename = a\n 1MDBFilename=b\n1MDBFilename= c\n", "A:  c(A,)\n"},
    };
    for (const auto& [list, databases] : cases)
    {
        EXPECT_EQ(Databases(list), databases) << list;
    }
}

TEST(ManufacturerListTest, EachKindOfEquipmentHasItsPlace)
{
    std::string text = "[A]\n12MDBFilename=no gap before it\n";
    for (std::size_t i = 1; i <= 12; ++i)
    {
        text += std::to_string(i) + "MDBFilename=x\n";
    }
    std::istringstream words("AC HP GSHP FuelOilFurnace GasFurnace PropaneFurnace "
                             "GasAndPropaneFurnace FuelOilBoiler GasBoiler PropaneBoiler "
                             "GasAndPropaneBoiler 2SpeedAC 2SpeedGSHP 2SpeedFurnace WaterHeater");
    const std::vector<std::string> keys{std::istream_iterator<std::string>(words), {}};
    for (const std::string& key : keys)
    {
        text += "1" + key + "=" + key + "\n12" + key + "=12 " + key + "\n";
    }
    const ManufacturerList list = ParseManufacturerList(text, "");
    const auto& entries = list.sections.at(0).entries;
    ASSERT_EQ(entries.size(), 12U);
    for (std::size_t i = 0; i < keys.size(); ++i)
    {
        EXPECT_EQ(entries[0].EquipmentKinds[i], keys[i]);
        EXPECT_EQ(entries[11].EquipmentKinds[i], "12 " + keys[i]);
    }
}

TEST(ManufacturerListTest, ASectionsValuesAreKeptOnce)
{
    const ManufacturerList list = ParseManufacturerList(
        "[Kestrel \xC4ir]\r\nPictureSetupFilename=KPic.EXE\r\nDatePicturesModified=5/6/2008\r\n"
        "DateCheckerPictureFile=K1.jpg\r\nPictureSetupFileSize=2500 or so\r\n"
        "MDBSetupFileSize=1e3\r\nMDBSetupFileSize=7\r\n",
        "");
    const ManufacturerList copy = list;
    const ManufacturerSection& section = copy.sections.at(0);
    EXPECT_EQ(section.SectionName, "Kestrel \u00C4ir");
    EXPECT_EQ(section.DatabaseSetupFile, "kestrel \u00C4ir.exe");
    EXPECT_EQ(section.PictureSetupFile, "kpic.exe");
    EXPECT_EQ(section.DatabaseSetupSize, 1000);
    EXPECT_EQ(section.PictureSetupSize, 2500);
    EXPECT_EQ(section.PicturesLatestDate, "5/6/2008");
    EXPECT_EQ(section.DateCheckerPictureFile, "K1.jpg");
    EXPECT_EQ(copy.text, list.text);
}

TEST(ManufacturerListTest, APageIsNoList)
{
    const std::pair<const char*, bool> rows[] = {
        {"", false},
        {"<html>[Sign in]</html>\n<a href=x>", false},
        {"[Loadcalc 8]\nMajor=8\n", false},
        {"[Manufver General]\nServer Address HTTP=http://s.example\n", true},
        {"[A]\n1MDBFilename=a\n", true},
        {"[A]\nPictureSetupFilename=p\n", true},
    };
    for (const auto& [text, isList] : rows)
    {
        EXPECT_EQ(ParseManufacturerList(text, "").isList, isList) << text;
    }
}

/// The counts of sections and databases, and the complaints.
std::string Bounds(const std::string& text)
{
    const ManufacturerList list = ParseManufacturerList(text, "");
    std::size_t databases = 0;
    for (const ManufacturerSection& section : list.sections)
    {
        databases += section.entries.size();
    }
    std::string said = std::to_string(list.sections.size()) + " " + std::to_string(databases);
    for (const std::string& complaint : list.complaints)
    {
        said += "; " + complaint;
    }
    return said;
}

TEST(ManufacturerListTest, WhatNoListOfTheVendorsHasIsLeftOut)
{
    const std::string file = "1MDBFilename=";
    const auto line = [&](std::size_t length) {
        return "[A]\n" + file + std::string(length - file.size(), 'x') + "\n";
    };
    EXPECT_EQ(Bounds(line(1024)), "1 1");
    EXPECT_EQ(Bounds(line(1025)), "1 0; A line of more than 1,024 characters is left out");
    EXPECT_EQ(Bounds("[" + std::string(255, 'n') + "]\n" + file + "a\n"), "1 1");
    EXPECT_EQ(Bounds("[A]\n[" + std::string(256, 'n') + "]\n" + file + "a\n"),
              "1 0; A section with a name of more than 255 characters is left out");
    std::string sections;
    for (int i = 0; i < 20'001; ++i)
    {
        sections += "[" + std::to_string(i) + "]\n";
    }
    EXPECT_EQ(Bounds(sections), "20000 0; What follows after 20,000 sections is left out");
    std::string databases = "[A]\n1MDBFilename=a\n[B]\n";
    for (int i = 1; i <= 100'000; ++i)
    {
        databases += std::to_string(i) + "MDBFilename=a\n";
    }
    EXPECT_EQ(Bounds(databases + "[C]\n1MDBFilename=a\n"),
              "2 100000; What follows after 100,000 databases is left out");
}

} // namespace
} // namespace velmo
