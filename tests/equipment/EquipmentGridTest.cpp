#include "equipment/EquipmentGrid.h"

#include "equipment/ManufacturerEntry.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <tuple>

namespace velmo
{
namespace
{

/// Sections with the flags of their databases' rows: what is installed and what needs an update.
struct Row
{
    const char* section;
    const char* installed;
    const char* needsUpdate;
    const char* picturesInstalled; ///< nullptr: the section has no pictures.
    const char* picturesNeedUpdate;
};

constexpr Row kRows[] = {
    {"A", "1/1/2020", "No", "1/1/2020", "Yes"},
    {"A", "1/1/2020", "Yes", "1/1/2020", "Yes"},
    {"B", "-", "-", "-", "-"},
    {"B", "1/1/2020", "No", "-", "-"},
    {"C", "1/1/2020", "No", nullptr, "-"},
    {"D", "1/1/2020", "No", "Unknown", "Yes"},
    {"E", "1/1/2020", "No", "1/1/2020", "No"},
};

class EquipmentGridTest : public testing::Test
{
  protected:
    EquipmentGridTest()
    {
        for (const Row& row : kRows)
        {
            ManufacturerEntry entry;
            entry.SectionName = row.section;
            entry.DatabaseSetupFile = std::string(row.section) + ".exe";
            entry.DatabaseSetupSize = "1000";
            entry.DatabaseInstalledDate = row.installed;
            entry.DatabaseNeedsUpdate = row.needsUpdate;
            entry.PicturesNeedUpdate = row.picturesNeedUpdate;
            if (row.picturesInstalled != nullptr)
            {
                entry.PictureSetupFile = std::string(row.section) + "pic.exe";
                entry.PictureSetupSize = "2000 or so";
                entry.PicturesInstalledDate = row.picturesInstalled;
                entry.InstallPictures = TickState::Unticked;
            }
            m_grid.AddRow(entry);
        }
    }

    void Run(std::string_view name)
    {
        const auto command =
            std::ranges::find(kMarkCommands, name, [](const auto& each) { return each.name; });
        ASSERT_NE(command, kMarkCommands.end());
        m_grid.Run(*command);
    }

    /// "x" ticked, "." unticked, "-" no box, from the first row to the last.
    [[nodiscard]] std::string Boxes(EquipmentColumn column) const
    {
        std::string boxes;
        for (std::size_t row = 0; row < m_grid.Model().Rows().size(); ++row)
        {
            boxes += "-.x"[static_cast<std::size_t>(m_grid.Model().Tick(row, Index(column)))];
        }
        return boxes;
    }

    EquipmentGrid m_grid;
};

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
    EXPECT_EQ(m_grid.TickedDatabases().files.Item(1)->FileName, "A.exe");
    EXPECT_EQ(m_grid.TickedDatabases().bytes, 1000);
    Run("mnuMarkAllPictures");
    EXPECT_EQ(m_grid.Summary(), "DB: 1, Pic: 4, 9 KB");
    EXPECT_EQ(refreshes, 2);
}

TEST_F(EquipmentGridTest, SectionsAlternateInColourAndWhatNeedsAnUpdateStandsOut)
{
    constexpr Colour kGreen{192, 220, 192};
    constexpr Colour kCream{255, 251, 240};
    const std::tuple<Colour, Colour, bool> looks[] = {
        {kGreen, {0, 0, 255}, true}, {kGreen, {}, true},  {kCream, {}, false},
        {kCream, {}, false},         {kGreen, {}, false}, {kCream, {0, 0, 255}, true},
        {kGreen, {}, false},
    };
    for (std::size_t i = 0; i < std::size(looks); ++i)
    {
        SCOPED_TRACE(i);
        const GridRow& row = m_grid.Model().Rows().at(i);
        EXPECT_EQ(std::tuple(row.background, row.textColour, row.bold), looks[i]);
    }
    m_grid.Clear();
    ManufacturerEntry entry;
    entry.SectionName = "F";
    m_grid.AddRow(entry);
    EXPECT_EQ(m_grid.Model().Rows().at(0).background, kGreen);
}

} // namespace
} // namespace velmo
