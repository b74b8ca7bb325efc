#include "catalogue/CVelmoProgramCommunicator.h"
#include "catalogue/CommonFolder.h"
#include "equipment/EquipmentList.h"
#include "equipment/InstallFlow.h"
#include "platform/HeadlessLoop.h"
#include "platform/MFile.h"
#include "sample/InstalledEquipment.h"
#include "sample/SampleDesktop.h"
#include "sample/SampleSetups.h"
#include "settings/CINIFileHandler.h"
#include "settings/DiagnosticLog.h"
#include "tests/support/FaultServer.h"
#include "tests/support/RecordedPrompts.h"
#include "tests/support/TemporaryDesktop.h"
#include "tests/support/TestData.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

namespace velmo::sample
{
namespace
{

using testing::HasSubstr;
using testing::Not;

class SampleEquipmentTest : public testing::Test
{
  protected:
    SampleEquipmentTest()
    {
        SampleDesktopChoices choices;
        choices.root = m_desktop.Folder() + "Velmo\\";
        const auto done = LayOutSampleDesktop(choices);
        EXPECT_TRUE(done) << done.Failure().description;
        m_settings.AppProfileFileName(SettingsFilePath());
        m_desktop.Write(m_listPath, ManufacturerListText(m_setups.Sections(), m_server.Url("")));
        m_list.Refresh();
    }

    [[nodiscard]] const std::string& Cell(std::size_t row, EquipmentColumn column) const
    {
        return m_list.Grid().Text(row, column);
    }

    void ServeAll(const CDownloadFiles& files, std::string_view folder)
    {
        for (const CDownloadFile& file : files)
        {
            const std::string path = std::string(folder) + file.FileName;
            const auto setup = m_setups.Make(path);
            ASSERT_TRUE(setup) << path;
            EXPECT_EQ(static_cast<double>(setup->size()), file.FileSize);
            m_server.Serve(path, *setup);
        }
    }

    test::TemporaryDesktop m_desktop;
    test::FaultServer m_server;
    std::string m_listPath = m_desktop.Folder() + "manufver.ini";
    SampleSetups m_setups{m_desktop.Read(test::BuildMachinePath(VELMO_EQUIPMENT_SETUP))};
    DiagnosticLog m_log{m_desktop.Folder() + "VelmoUpd.log"};
    CINIFileHandler m_settings{m_log};
    test::RecordedPrompts m_prompts;
    CVelmoProgramCommunicator m_locator{m_log, m_prompts};
    EquipmentList m_list{m_listPath, "", m_locator, m_log};
    platform::HeadlessLoop m_loop;
};

TEST_F(SampleEquipmentTest, TheGridSaysOfEachDatabaseWhatIsInstalled)
{
    ASSERT_EQ(m_list.Grid().Model().Rows().size(), 200U);
    std::int32_t old = 0;
    for (std::size_t row = 0; row < 200; ++row)
    {
        const std::string& file = Cell(row, EquipmentColumn::DatabaseFile);
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

TEST_F(SampleEquipmentTest, WhatIsTickedIsInstalledByItsSetups)
{
    EquipmentGrid& grid = m_list.Grid();
    grid.Run(kMarkCommands[0]);
    std::size_t old = 0; // The first row whose pictures need an update.
    while (Cell(old, EquipmentColumn::PicturesNeedUpdate) != "Yes")
    {
        ++old;
    }
    ASSERT_TRUE(grid.Toggle(old, Index(EquipmentColumn::InstallPictures)));
    auto order = m_list.PrepareInstall(m_prompts);
    ASSERT_TRUE(order);
    ServeAll(order->databases.files, kDatabaseFolder);
    ServeAll(order->pictures.files, kPictureFolder);
    const std::size_t files = order->databases.files.Count() + 1;

    InstallFlow flow(std::move(*order), {m_loop, m_settings, m_log, CommonFolder()});
    flow.Start();
    m_loop.RunUntil(
        [&] { return std::ranges::none_of(flow.Setups(), &platform::StartedProgram::IsRunning); });
    flow.Close();
    EXPECT_EQ(static_cast<std::size_t>(flow.FilesInstalled()), files) << flow.Status().Text();
    EXPECT_FALSE(platform::MFile::FolderExists(CommonFolder() + "Temp"));
    EXPECT_FALSE(m_settings.MyGetAppProfileBoolean("SetupSettings", "NoHVACWizard", true));

    m_list.InspectAgain();
    EXPECT_EQ(m_list.CountDatabasesThatNeedUpdate(), 0);
    EXPECT_EQ(Cell(old, EquipmentColumn::PicturesNeedUpdate), "No");
    EXPECT_EQ(Cell(old, EquipmentColumn::PicturesInstalled),
              Cell(old, EquipmentColumn::PicturesLatest));
    const std::string record = m_desktop.Read(CommonFolder() + "setups.log");
    EXPECT_EQ(static_cast<std::size_t>(std::ranges::count(record, '\n')), files);
    EXPECT_THAT(record, HasSubstr(", wizard skipped"));
    EXPECT_THAT(record, Not(HasSubstr(": ")));
}

} // namespace
} // namespace velmo::sample
