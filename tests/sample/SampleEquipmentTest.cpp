#include "catalogue/CVelmoProgramCommunicator.h"
#include "catalogue/CommonFolder.h"
#include "equipment/EquipmentList.h"
#include "platform/MFile.h"
#include "sample/InstalledEquipment.h"
#include "sample/SampleDesktop.h"
#include "sample/SampleSetups.h"
#include "settings/CINIFileHandler.h"
#include "settings/DiagnosticLog.h"
#include "tests/support/FaultServer.h"
#include "tests/support/RecordedPrompts.h"
#include "tests/support/TemporaryDesktop.h"
#include "tests/support/TestSystem.h"

#include <gtest/gtest.h>

#include <algorithm>

namespace velmo::sample
{
namespace
{

class SampleEquipmentTest : public testing::Test
{
  protected:
    SampleEquipmentTest()
    {
        SampleDesktopChoices choices;
        choices.root = m_desktop.Folder() + "Velmo\\";
        const auto done = LayOutSampleDesktop(choices);
        EXPECT_TRUE(done) << done.Failure().description;
        m_desktop.Write(m_listPath, ManufacturerListText(m_setups.Sections(), m_server.Url("")));
        m_list.Refresh();
    }

    [[nodiscard]] std::string Cell(std::size_t row, EquipmentColumn column) const
    {
        return m_list.Grid().Text(row, column);
    }

    test::TemporaryDesktop m_desktop;
    test::FaultServer m_server;
    std::string m_listPath = m_desktop.Folder() + "manufver.ini";
    SampleSetups m_setups{m_desktop.Read(test::BuildMachinePath(VELMO_EQUIPMENT_SETUP))};
    DiagnosticLog m_log{m_desktop.Folder() + "VelmoUpd.log"};
    test::RecordedPrompts m_prompts;
    CVelmoProgramCommunicator m_locator{m_log, m_prompts};
    EquipmentList m_list{m_listPath, "", m_locator, m_log};
};

TEST_F(SampleEquipmentTest, TheGridSaysOfEachDatabaseWhatIsInstalled)
{
    ASSERT_EQ(m_list.Grid().Rows().rows.size(), 200U);
    std::int32_t old = 0;
    for (std::size_t row = 0; row < 200; ++row)
    {
        const std::string file = Cell(row, EquipmentColumn::DatabaseFile);
        SCOPED_TRACE(file);
        const InstalledState state = InstalledDatabaseState(row);
        old += state == InstalledState::Old ? 1 : 0;
        const char* needsUpdate = state == InstalledState::Old       ? "Yes"
                                  : state == InstalledState::Current ? "No"
                                                                     : "-";
        EXPECT_EQ(Cell(row, EquipmentColumn::DatabaseNeedsUpdate), needsUpdate);
        EXPECT_EQ(platform::MFile::FileExists(CommonFolder() + file),
                  state != InstalledState::None);
    }
    EXPECT_EQ(m_list.CountDatabasesThatNeedUpdate(), old);
    EXPECT_GT(m_list.CountPicturesThatNeedUpdate(), 5);
}

TEST_F(SampleEquipmentTest, SetupsCanBeMadeAndAreAsLargeAsTheyAreListed)
{
    for (const char* name :
         {"mnuMarkAllDatabasesThatNeedUpdating", "mnuMarkAllPicturesThatNeedUpdating"})
    {
        m_list.Grid().Run(
            *std::ranges::find(kMarkCommands, std::string_view(name), &MarkCommand::name));
    }
    const auto order = m_list.PrepareInstall(m_prompts);
    ASSERT_TRUE(order);
    for (const SetupFiles& setups : order->setups)
    {
        EXPECT_GT(setups.files.Count(), 0U);
        for (const CDownloadFile& file : setups.files)
        {
            SCOPED_TRACE(file.FileName);
            const auto setup = m_setups.Make(setups.folder + file.FileName);
            ASSERT_TRUE(setup);
            EXPECT_EQ(static_cast<double>(setup->size()), file.FileSize);
        }
    }
}

} // namespace
} // namespace velmo::sample
