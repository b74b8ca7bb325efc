#include "sample/SampleDesktop.h"

#include "catalogue/CommonFolder.h"
#include "catalogue/ProgramTable.h"
#include "equipment/EquipmentList.h"
#include "platform/MachinePolicy.h"
#include "sample/InstalledEquipment.h"
#include "sample/SampleSetups.h"
#include "sample/SampleVendorSite.h"
#include "tests/support/ProgramDesktop.h"
#include "tests/support/TestSystem.h"
#include "updates/ProgramStatusList.h"
#include "updates/VersionList.h"

#include <algorithm>

namespace velmo::sample
{
namespace
{

class SampleDesktopTest : public test::ProgramDesktop
{
  protected:
    SampleDesktopTest() { LayOut(); }

    void LayOut() const
    {
        const auto done = LayOutSampleDesktop(
            {.root = m_desktop.Folder() + "Velmo\\", .server = "http://127.0.0.1:1"});
        ASSERT_TRUE(done) << done.Failure().description;
    }
};

TEST_F(SampleDesktopTest, TheProgramListSaysWhatTheTableSays)
{
    const std::string settingsText = m_desktop.Read(SettingsFilePath());
    LayOut();
    EXPECT_EQ(m_desktop.Read(SettingsFilePath()), settingsText);
    EXPECT_EQ(platform::ReadMachinePolicy("WebServer"), "http://127.0.0.1:1");
    const SampleVendorSite site("http://127.0.0.1:1");
    m_settings.AppProfileFileName(SettingsFilePath());
    ProgramStatusList list(m_locator, m_settings);
    list.Rebuild(VersionList(site.Find("/pub/demo/version.ini")->bytes), SharedValues::Read());
    EXPECT_TRUE(m_prompts.notices.empty());
    EXPECT_EQ(std::ranges::count_if(list.Rows(), &ProgramRow::IsInstalled),
              std::ssize(kInstalledPrograms));
    for (const InstalledProgram& program : kInstalledPrograms)
    {
        SCOPED_TRACE(program.name);
        const ProgramRow* row = list.Find(program.name);
        ASSERT_NE(row, nullptr);
        EXPECT_EQ(row->installed, program.version);
        EXPECT_EQ(CellText(*row, ProgramColumn::CheckOnStartup), program.startupCheck);
        EXPECT_EQ(CellText(*row, ProgramColumn::NeedToUpdate), program.needsUpdate);
    }
}

TEST_F(SampleDesktopTest, TheGridSaysOfEachDatabaseWhatIsInstalledAndSetupsAreAsLargeAsListed)
{
    const SampleSetups setups(m_desktop.Read(test::BuildMachinePath(VELMO_EQUIPMENT_SETUP)));
    EquipmentList list(m_locator, m_log);
    list.Show(std::make_shared<const ManufacturerList>(
                  ParseManufacturerList(ManufacturerListText(setups.Sections(), ""), "")),
              SharedValues::Read());
    ASSERT_EQ(list.Grid().Rows().rows.size(), 200U);
    std::int32_t old = 0;
    for (std::size_t row = 0; row < 200; ++row)
    {
        const std::string file = list.Grid().Text(row, EquipmentColumn::DatabaseFile);
        SCOPED_TRACE(file);
        const InstalledState state = InstalledDatabaseState(row);
        old += state == InstalledState::Old ? 1 : 0;
        EXPECT_EQ(list.Grid().Text(row, EquipmentColumn::DatabaseNeedsUpdate),
                  state == InstalledState::Old       ? "Yes"
                  : state == InstalledState::Current ? "No"
                                                     : "-");
        EXPECT_EQ(platform::MFile::FileExists(CommonFolder() + file),
                  state != InstalledState::None);
    }
    EXPECT_EQ(list.CountDatabasesThatNeedUpdate(), old);
    EXPECT_GT(list.CountPicturesThatNeedUpdate(), 5);

    list.Grid().Run(kMarkCommands[0]);
    list.Grid().Run(kMarkCommands[2]);
    const auto order = list.PrepareInstall(m_prompts);
    ASSERT_TRUE(order);
    for (const SetupFiles& files : order->setups)
    {
        EXPECT_GT(files.files.Count(), 0U);
        for (const CDownloadFile& file : files.files)
        {
            SCOPED_TRACE(file.FileName);
            const auto setup = setups.Make(files.folder + file.FileName);
            ASSERT_TRUE(setup);
            EXPECT_EQ(static_cast<double>(setup->size()), file.FileSize);
        }
    }
}

TEST(SampleVendorSiteTest, ServesWhatTheCatalogueNamesAndNoLinkLeadsNowhere)
{
    const SampleVendorSite site("http://127.0.0.1:8123");
    for (const ProgramEntry& row : kPrograms)
    {
        SCOPED_TRACE(row.displayName);
        ASSERT_NE(site.Find(row.demoSetup), nullptr);
        EXPECT_TRUE(site.Find(row.demoSetup)->bytes.starts_with("MZ"));
        for (const std::string_view page : {row.informationPage, row.updatePage})
        {
            EXPECT_TRUE(page.empty() ||
                        site.Find(page)->bytes.find(row.displayName) != std::string::npos);
        }
    }
    std::size_t links = 0;
    for (const auto& [path, file] : site.Files())
    {
        EXPECT_EQ(file.bytes.find("{{"), std::string::npos) << path << ": a placeholder";
        for (const std::string mark : {"href=\"", "http://127.0.0.1:8123"})
        {
            for (std::size_t at = 0; (at = file.bytes.find(mark, at)) != std::string::npos; ++links)
            {
                at += mark.size();
                const std::string target =
                    file.bytes.substr(at, file.bytes.find_first_of("\"#\r", at) - at);
                EXPECT_TRUE(target.empty() || site.Find(target) != nullptr)
                    << target << " on " << path;
            }
        }
    }
    EXPECT_GT(links, 34U * 3);
}

} // namespace
} // namespace velmo::sample
