#include "settings/DiagnosticLog.h"

#include "platform/MFile.h"
#include "tests/support/TemporaryDesktop.h"

#include <gtest/gtest.h>

namespace velmo
{
namespace
{

class DiagnosticLogTest : public testing::Test
{
  protected:
    const test::TemporaryDesktop m_desktop;
    const std::string m_path = m_desktop.Folder() + "VelmoUpd.log";
    DiagnosticLog m_log{m_path, [] {
                            return std::chrono::sys_days(std::chrono::year(2024) / 2 / 29) +
                                   std::chrono::hours(7);
                        }};
};

TEST_F(DiagnosticLogTest, EachFailureIsOneLineWithItsTimeAndReason)
{
    m_log.Write("first\r\n[second]");
    m_log.Failure("Deleting x.ini", {5, "Access denied"});
    EXPECT_EQ(m_desktop.Read("VelmoUpd.log"),
              "2024-02-29 07:00:00Z  first  [second]\r\n"
              "2024-02-29 07:00:00Z  Deleting x.ini: Access denied (5)\r\n");
}

TEST_F(DiagnosticLogTest, AFullLogMovesOnAndThreeOldOnesAreKept)
{
    const std::string full(1U << 20, 'x');
    for (const char* mark : {"1", "2", "3", "4"})
    {
        m_desktop.Write("VelmoUpd.log", mark + full.substr(2));
        m_log.Write("x"); // One byte short of the limit, it goes on in its file.
        m_log.Write("new");
        EXPECT_EQ(m_desktop.Read("VelmoUpd.log"), "2024-02-29 07:00:00Z  new\r\n");
    }
    EXPECT_EQ(m_desktop.Read("VelmoUpd.1.log").front(), '4');
    EXPECT_EQ(m_desktop.Read("VelmoUpd.2.log").front(), '3');
    EXPECT_EQ(m_desktop.Read("VelmoUpd.3.log").front(), '2');
    EXPECT_FALSE(platform::MFile::FileExists(m_desktop.Folder() + "VelmoUpd.4.log"));
}

TEST_F(DiagnosticLogTest, ALogThatCannotBeWrittenIsSilent)
{
    DiagnosticLog nowhere("");
    nowhere.Write("dropped");
    DiagnosticLog inNoFolder(m_desktop.Folder() + "no\\VelmoUpd.log");
    inNoFolder.Write("dropped");
    EXPECT_TRUE(platform::MFile::FileNames(m_desktop.Folder()).empty());
}

} // namespace
} // namespace velmo
