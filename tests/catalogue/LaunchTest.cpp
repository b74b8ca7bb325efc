#include "catalogue/CVelmoProgramCommunicator.h"

#include "platform/MFile.h"
#include "settings/DiagnosticLog.h"
#include "tests/support/RecordedPrompts.h"
#include "tests/support/TemporaryDesktop.h"

#include <gtest/gtest.h>

namespace velmo
{
namespace
{

namespace MFile = platform::MFile;

class LaunchTest : public testing::Test
{
  protected:
    /// What the log says after the launch of program 7.
    std::string Launch()
    {
        m_desktop.Write("launch.log", "");
        m_locator.Launch(7);
        return m_desktop.Read("launch.log");
    }

    const test::TemporaryDesktop m_desktop;
    DiagnosticLog m_log{m_desktop.Folder() + "launch.log"};
    test::RecordedPrompts m_prompts;
    CVelmoProgramCommunicator m_locator{m_log, m_prompts};
};

TEST_F(LaunchTest, AMissingProgramIsANotice)
{
    // The second time its folder is known, but empty.
    for (const char* folder : {"", m_desktop.Folder().c_str()})
    {
        m_desktop.SetWinIniFolder("PsychrochartDirectory", folder);
        Launch();
    }
    ASSERT_EQ(m_prompts.notices.size(), 2U);
    for (const auto& notice : m_prompts.notices)
    {
        EXPECT_EQ(notice.icon, PromptIcon::Information);
        EXPECT_EQ(notice.title, "Psychrochart Not Found");
    }
}

TEST_F(LaunchTest, WithoutItsFolderTheCurrentOneIsNotSearched)
{
    const std::string stray = m_desktop.Write(MFile::FullPath("Psychrochartw.exe"), "no program");
    EXPECT_EQ(Launch(), "");
    EXPECT_EQ(m_prompts.notices.size(), 1U);
    EXPECT_TRUE(MFile::DeleteIfExists(stray));
}

TEST_F(LaunchTest, TheProgramIsStartedElseItsPreviousGeneration)
{
    m_desktop.SetWinIniFolder("PsychrochartDirectory", m_desktop.Folder());
    m_desktop.Write("Psychrochart.exe", "no program");
    EXPECT_NE(Launch().find("\\Psychrochart.exe"), std::string::npos);
    m_desktop.WriteProgram("Psychrochart.exe");
    EXPECT_EQ(Launch(), "");
    m_desktop.Write("Psychrochartw.exe", "no program");
    EXPECT_NE(Launch().find("\\Psychrochartw.exe"), std::string::npos);
    m_desktop.WriteProgram("Psychrochartw.exe");
    EXPECT_EQ(Launch(), "");
    EXPECT_TRUE(m_prompts.notices.empty());
}

TEST_F(LaunchTest, NoOtherNumberDoesAnything)
{
    for (const std::int32_t number : {-1, 0, 6, 8, 31, 32})
    {
        m_locator.Launch(number);
    }
    EXPECT_TRUE(m_prompts.notices.empty());
    EXPECT_FALSE(m_locator.LastError());
}

} // namespace
} // namespace velmo
