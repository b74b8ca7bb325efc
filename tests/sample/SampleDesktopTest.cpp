#include "sample/SampleDesktop.h"

#include "catalogue/CVelmoProgramCommunicator.h"
#include "catalogue/CommonFolder.h"
#include "catalogue/ProgramCatalogue.h"
#include "platform/MFile.h"
#include "platform/MachinePolicy.h"
#include "sample/SampleVersionList.h"
#include "settings/CINIFileHandler.h"
#include "settings/DiagnosticLog.h"
#include "tests/support/RecordedPrompts.h"
#include "tests/support/TemporaryDesktop.h"
#include "updates/ProgramStatusList.h"
#include "updates/VersionList.h"

#include <gtest/gtest.h>

namespace velmo::sample
{
namespace
{

class SampleDesktopTest : public testing::Test
{
  protected:
    SampleDesktopTest()
    {
        m_choices.root = m_desktop.Folder() + "Velmo\\";
        m_choices.equipment = false;
    }

    void LayOut() const
    {
        const auto done = LayOutSampleDesktop(m_choices);
        ASSERT_TRUE(done) << done.Failure().description;
    }

    test::TemporaryDesktop m_desktop;
    SampleDesktopChoices m_choices;
    DiagnosticLog m_log{""};
    test::RecordedPrompts m_prompts;
    CVelmoProgramCommunicator m_locator{m_log, m_prompts};
};

TEST_F(SampleDesktopTest, TheProgramListSaysWhatTheTableSays)
{
    LayOut();
    const std::string settingsText = m_desktop.Read(SettingsFilePath());
    LayOut();
    EXPECT_EQ(m_desktop.Read(SettingsFilePath()), settingsText);
    const VersionList versions(
        m_desktop.Write("version.ini", VersionListText("http://127.0.0.1:1")), m_log);
    CINIFileHandler settings(m_log);
    settings.AppProfileFileName(SettingsFilePath());
    ProgramStatusList list(m_locator, settings, versions);
    list.Rebuild(true);
    EXPECT_TRUE(m_prompts.notices.empty());

    std::size_t installed = 0;
    for (const ListRow& row : list.List().Rows())
    {
        installed += row.cells[ProgramStatusList::NeedToUpdate - 1].ends_with("(Try Demo)") ? 0 : 1;
    }
    EXPECT_EQ(installed, kInstalledPrograms.size());
    for (const InstalledProgram& program : kInstalledPrograms)
    {
        const std::string_view name = NameOfIndex(program.index);
        SCOPED_TRACE(name);
        const ListRow* row = list.List().Find(name);
        ASSERT_NE(row, nullptr);
        EXPECT_EQ(row->cells[ProgramStatusList::InstalledVersion - 1],
                  InstalledVersionText(program.version));
        EXPECT_EQ(row->cells[ProgramStatusList::CheckOnStartup - 1], program.startupCheck);
        EXPECT_EQ(row->cells[ProgramStatusList::NeedToUpdate - 1], program.needsUpdate);
    }
}

TEST_F(SampleDesktopTest, TakesTheRealUpdateManagerAndPointsItAtItsServerOrSaysWhyNot)
{
    m_choices.updateManager = m_desktop.Write("build\\VelmoUpd.exe", "the real one");
    m_choices.server = "http://127.0.0.1:8123";
    LayOut();
    EXPECT_EQ(m_desktop.Read(SampleCommonFolder(m_choices) + "VelmoUpd.exe"), "the real one");
    EXPECT_EQ(platform::ReadMachinePolicy("WebServer"), "http://127.0.0.1:8123");

    m_choices.updateManager = m_desktop.Folder() + "missing.exe";
    const auto done = LayOutSampleDesktop(m_choices);
    ASSERT_FALSE(done);
    EXPECT_EQ(done.Failure().code, 2);
    EXPECT_NE(done.Failure().description.find("missing.exe"), std::string::npos);
}

} // namespace
} // namespace velmo::sample
