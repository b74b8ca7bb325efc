#include "sample/SampleDesktop.h"

#include "catalogue/CVelmoProgramCommunicator.h"
#include "catalogue/CommonFolder.h"
#include "catalogue/ProgramCatalogue.h"
#include "platform/MachinePolicy.h"
#include "sample/SampleVendorSite.h"
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
        m_choices.server = "http://127.0.0.1:1";
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
    EXPECT_EQ(platform::ReadMachinePolicy("WebServer"), m_choices.server);
    const SampleVendorSite site(m_choices.server);
    const VersionList versions(
        m_desktop.Write("version.ini", site.Find("/pub/demo/version.ini")->bytes), m_log);
    CINIFileHandler settings(m_log);
    settings.AppProfileFileName(SettingsFilePath());
    ProgramStatusList list(m_locator, settings, versions);
    list.Rebuild(true);
    EXPECT_TRUE(m_prompts.notices.empty());

    std::size_t installed = 0;
    for (const ProgramRow& row : list.Rows())
    {
        installed += row.IsInstalled() ? 1 : 0;
    }
    EXPECT_EQ(installed, kInstalledPrograms.size());
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

} // namespace
} // namespace velmo::sample
