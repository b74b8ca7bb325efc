#include "settings/CINIFileHandler.h"

#include "platform/MFile.h"
#include "settings/DiagnosticLog.h"
#include "tests/support/CountedReads.h"
#include "tests/support/TemporaryDesktop.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <limits>
#include <stdexcept>
#include <tuple>

namespace velmo
{
namespace
{

using std::string_literals::operator""s;
using std::string_view_literals::operator""sv;

class CINIFileHandlerTest : public testing::Test
{
  protected:
    CINIFileHandlerTest() { m_handler.AppProfileFileName(m_desktop.Folder() + "VelmoUpd.ini"); }

    void Hold(const std::string& value) const
    {
        m_desktop.Write("VelmoUpd.ini", "[S]\r\nk=" + value + "\r\n");
    }

    float Single(char decimalMark, float defaultValue)
    {
        CINIFileHandler handler(m_log, decimalMark);
        handler.AppProfileFileName(m_handler.AppProfileFileName());
        return handler.MyGetAppProfileSingle("S", "k", defaultValue);
    }

    const test::TemporaryDesktop m_desktop;
    DiagnosticLog m_log{m_desktop.Folder() + "VelmoUpd.log"};
    CINIFileHandler m_handler{m_log, '.'};
};

TEST_F(CINIFileHandlerTest, ABooleanIsTheWordTrueOrANumberOtherThanZero)
{
    constexpr std::pair<const char*, bool> kRows[] = {
        {"1 'True", true}, {"0 'False", false}, {"\" tRUE \"", true}, {"-1", true},
        {"2", true},       {"0.5", true},       {"False", false},     {"Yes", false},
        {"", false},       {"True!", false},
    };
    for (const auto& [value, meaning] : kRows)
    {
        Hold(value);
        EXPECT_EQ(m_handler.MyGetAppProfileBoolean("S", "k", !meaning), meaning) << value;
    }
    EXPECT_TRUE(m_handler.MyGetAppProfileBoolean("S", "none", true));
    EXPECT_FALSE(m_handler.MyGetAppProfileBoolean("S", "none", false));
}

TEST_F(CINIFileHandlerTest, IntegersAreLenientRoundedAndChecked)
{
    Hold("12abc");
    EXPECT_EQ(m_handler.MyGetAppProfileInteger("S", "k", 7), 12);
    EXPECT_EQ(m_handler.MyGetAppProfileInteger("S", "none", -32768), -32768);
    constexpr auto kLowest = std::numeric_limits<std::int32_t>::min();
    EXPECT_EQ(m_handler.MyGetAppProfileLong("S", "none", kLowest), kLowest);
    Hold("32768");
    EXPECT_THROW((void)m_handler.MyGetAppProfileInteger("S", "k", 0), std::overflow_error);
    EXPECT_EQ(m_handler.MyGetAppProfileLong("S", "k", 0), 32768);
    Hold("2147483648");
    EXPECT_THROW((void)m_handler.MyGetAppProfileLong("S", "k", 0), std::overflow_error);
    Hold("");
    EXPECT_EQ(m_handler.MyGetAppProfileLong("S", "k", 5), 0);
}

TEST_F(CINIFileHandlerTest, ASingleReadsACommaUnderAPointLocaleButNotTheOtherWayRound)
{
    const std::tuple<const char*, char, float> rows[] = {
        {"2,5", '.', 2.5F}, {"2,5", ',', 2.0F},  {"2.5", '.', 2.5F},
        {"2.5", ',', 2.0F}, {"2.5", '\'', 2.5F}, {"1e300", '.', std::numeric_limits<float>::max()}};
    for (const auto& [text, mark, number] : rows)
    {
        Hold(text);
        EXPECT_EQ(Single(mark, 0), number) << text << " " << mark;
    }
    m_desktop.Write("VelmoUpd.ini", "");
    EXPECT_EQ(Single('.', 0.1F), 0.1F);
    EXPECT_EQ(Single('.', -4.5e7F), -4.5e7F);
    EXPECT_EQ(Single(',', 600.0F), 600.0F);
}

TEST_F(CINIFileHandlerTest, WhatIsWrittenIsInTheFileAndReadsBack)
{
    m_handler.MyWriteAppProfileBoolean("S", "yes", true);
    m_handler.MyWriteAppProfileBoolean("S", "no", false);
    m_handler.MyWriteAppProfileString("S", "text", "a b");
    EXPECT_EQ(m_desktop.Read("VelmoUpd.ini"), "[S]\r\nyes=1 'True\r\nno=0 'False\r\ntext=a b\r\n");
    m_handler.MyWriteAppProfileSection("Sizes", "a=1\0b=2\0"sv);
    EXPECT_EQ(m_handler.MyGetAppProfileSection("Sizes"), "a=1\0b=2\0"s);
    m_handler.MyDeleteAppProfileItem("Sizes", "a");
    EXPECT_EQ(m_handler.MyGetAppProfileString("Sizes", "a", "default"), "");
    EXPECT_EQ(m_handler.MyGetAppProfileSection("Sizes"), "a=\0b=2\0"s);
    m_handler.MyDeleteAppProfileSection("Sizes");
    EXPECT_EQ(m_handler.MyGetAppProfileSection("Sizes"), "");
    EXPECT_EQ(m_handler.MyGetAppProfileString("S", "text", ""), "a b");
}

TEST_F(CINIFileHandlerTest, LongTextIsCutToItsBuffer)
{
    Hold(std::string(40'000, 'x'));
    EXPECT_EQ(m_handler.MyGetAppProfileString("S", "k", "").size(), 255U);
    EXPECT_EQ(m_handler.MyGetAppProfileSection("S").size(), 32'765U);
}

TEST_F(CINIFileHandlerTest, ASnapshotAnswersAsTheFileWas)
{
    m_desktop.Write("VelmoUpd.ini",
                    "[S]\r\nk = \"7,5x\" \r\nyes=True\r\n;c\r\nK=2\r\n[T]\n[s]\nk=3\n");
    (void)test::TakeCountedReads();
    const SettingsSnapshot then = m_handler.Snapshot();
    m_handler.MyWriteAppProfileString("S", "k", "9");
    EXPECT_EQ(m_handler.Snapshot("S").Long("S", "k", 0), 9);
    EXPECT_EQ(then.String("s", "K", ""), "7,5x");
    EXPECT_EQ(then.Integer("S", "k", 0), 7);
    EXPECT_EQ(then.Long("S", "k", 0), 7);
    EXPECT_EQ(then.Single("S", "k", 0, '.'), 7.5F);
    EXPECT_TRUE(then.Boolean("S", "yes", false));
    EXPECT_EQ(then.String("T", "k", "none  "), "none");
    EXPECT_EQ(then.Section("S"), "k=\"7,5x\"\0yes=True\0K=2\0"s);
    EXPECT_THAT(then.SectionNames(), testing::ElementsAre("S", "T"));
    EXPECT_THAT(then.Entries("S"),
                testing::ElementsAre(testing::Pair("k", "7,5x"), testing::Pair("yes", "True"),
                                     testing::Pair("K", "2")));
    EXPECT_EQ(SettingsSnapshot::Parse("\xFF\xFE[\0A\0]\0\n\0k\0=\0\xE4\0"sv).String("a", "K", ""),
              "\xC3\xA4");
    EXPECT_EQ(SettingsSnapshot().Long("A", "k", 5), 5);
    // The snapshot, the write in between and the one question after it.
    EXPECT_EQ(test::TakeCountedReads()["velmoupd.ini"], 3);
}

TEST_F(CINIFileHandlerTest, AFailedWriteIsALineInTheLog)
{
    m_handler.AppProfileFileName(m_desktop.Folder() + "no\\VelmoUpd.ini");
    m_handler.MyWriteAppProfileString("Options", "AutoConnect", "1");
    m_handler.MyDeleteAppProfileSection("Gone\n");
    const std::string log = m_desktop.Read("VelmoUpd.log");
    EXPECT_THAT(log, testing::ContainsRegex("\\[Options\\] AutoConnect in .*VelmoUpd.ini\": .+"));
    EXPECT_EQ(std::count(log.begin(), log.end(), '\n'), 2);
}

TEST_F(CINIFileHandlerTest, AFileThatCannotBeReadIsToldAndReadsAsDefaults)
{
    const std::string line = "Reading \"" + m_handler.AppProfileFileName() + "\": ";
    EXPECT_EQ(m_handler.MyGetAppProfileLong("S", "k", 7), 7);
    EXPECT_FALSE(platform::MFile::FileExists(m_log.Path())) << "a missing one is no failure";
    m_desktop.Write("VelmoUpd.ini\\x", ""); // It is a folder.
    EXPECT_EQ(m_handler.MyGetAppProfileLong("S", "k", 7), 7);
    EXPECT_THAT(m_desktop.Read("VelmoUpd.log"), testing::HasSubstr(line));
    m_desktop.Write("VelmoUpd.log", "");
    EXPECT_TRUE(m_handler.Snapshot().SectionNames().empty());
    EXPECT_THAT(m_desktop.Read("VelmoUpd.log"), testing::HasSubstr(line));
}

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
              "2024-02-29 07:00:00Z  "
              "first\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD\xEF\xBF\xBD[second]\xEF\xBF\xBD\r\n"
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
    EXPECT_TRUE(platform::MFile::FileNames(m_desktop.Folder()).Value().empty());
    m_desktop.Write("no\\x", "");
    inNoFolder.Write("arrives");
    EXPECT_FALSE(inNoFolder.WhyOff());
}

} // namespace
} // namespace velmo
