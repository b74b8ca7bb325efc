#include "settings/DiagnosticLog.h"

#include "platform/MFile.h"
#include "tests/support/TemporaryDesktop.h"

#include <gtest/gtest.h>

#include <algorithm>

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
    m_log.Write("first\r\n\x1B\x7F[second]\xFC");
    m_log.Failure("Deleting x.ini", {5, "Access denied"});
    EXPECT_EQ(m_desktop.Read("VelmoUpd.log"),
              "2024-02-29 07:00:00Z  first    [second]\xEF\xBF\xBD\r\n"
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

TEST_F(DiagnosticLogTest, AFloodOfLinesIsCountedInsteadOfWritten)
{
    auto now = std::chrono::system_clock::time_point(std::chrono::hours(24));
    {
        DiagnosticLog log(m_path, [&now] { return now; });
        for (int i = 0; i < 503; ++i)
        {
            log.Write("bad name");
        }
        now += std::chrono::minutes(2);
        log.Write("later");
    }
    const std::string text = m_desktop.Read("VelmoUpd.log");
    EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 502);
    EXPECT_TRUE(text.ends_with("00:02:00Z  3 further lines are left out\r\n"
                               "1970-01-02 00:02:00Z  later\r\n"));
}

TEST_F(DiagnosticLogTest, ALogThatCannotBeWrittenIsSilentAndKnowsWhy)
{
    DiagnosticLog nowhere("");
    nowhere.Write("dropped");
    EXPECT_EQ(nowhere.WhyOff().value().code, 3);
    DiagnosticLog inNoFolder(m_desktop.Folder() + "no\\VelmoUpd.log");
    EXPECT_FALSE(inNoFolder.WhyOff());
    inNoFolder.Write("dropped");
    EXPECT_EQ(inNoFolder.WhyOff().value().code, 3);
    EXPECT_TRUE(platform::MFile::FileNames(m_desktop.Folder()).empty());
    m_desktop.Write("no\\x", "");
    inNoFolder.Write("arrives");
    EXPECT_FALSE(inNoFolder.WhyOff());
}

} // namespace
} // namespace velmo
