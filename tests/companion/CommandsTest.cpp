#include "companion/Commands.h"

#include "catalogue/ProgramTable.h"
#include "sample/PeImageWriter.h"
#include "tests/support/CountedReads.h"
#include "tests/support/FaultServer.h"
#include "tests/support/LoopbackSocket.h"
#include "tests/support/TemporaryDesktop.h"
#include "tests/support/TestSystem.h"

#include <gmock/gmock.h>

#include <sstream>
#include <tuple>

namespace velmo::companion
{
namespace
{

using test::FaultServer;
using testing::HasSubstr;

class CommandsTest : public testing::Test
{
  protected:
    int Do(const std::vector<std::string>& arguments)
    {
        std::ostringstream output;
        std::ostringstream errors;
        const ExitCode code = companion::Run(arguments, output, errors);
        m_output = output.str();
        m_errors = errors.str();
        return static_cast<int>(code);
    }

    std::string WriteProgram(std::string_view name) const
    {
        const sample::VersionResource version{
            .fileVersion = {8, 2, 0, 14},
            .strings = {{u"040904B0", {{u"CompanyName", u"Arbor Works"}}}}};
        return m_desktop.Write(name, sample::WritePeImage({true, {version}}));
    }

    const test::TemporaryDesktop m_desktop;
    std::string m_output;
    std::string m_errors;
};

TEST_F(CommandsTest, StatusSaysWhetherAnythingNeedsAnUpdate)
{
    FaultServer server;
    m_desktop.SetPolicy("WebServer", server.Url(""));
    m_desktop.SetWinIniFolder("CommonDirectory", m_desktop.Folder());
    m_desktop.SetWinIniFolder("LoadcalcDirectory", m_desktop.Folder());
    WriteProgram("Loadcalc8.exe");
    const std::tuple<const char*, int, const char*> rows[] = {
        {"Revision=14", 0, "8.02.14         No\n"},
        {"Revision=15", 3, "8.02.15         Yes\n"},
    };
    const std::string start =
        "\nLoadcalc 8        -                            8.02.14            ";
    for (const auto& [list, exitCode, end] : rows)
    {
        server.Serve("/pub/demo/version.ini",
                     std::string("[Loadcalc 8]\r\nMajor=8\r\nMinor=2\r\n") + list);
        EXPECT_EQ(Do({"status"}), exitCode);
        EXPECT_THAT(m_output, testing::StartsWith("Program           Check for Update on Startup  "
                                                  "Installed Version  Latest Version  Need to "
                                                  "Update\n----------------  ----"));
        EXPECT_THAT(m_output, HasSubstr(start + end));
        EXPECT_EQ(std::count(m_output.begin(), m_output.end(), '\n'), 2 + kProgramCount - 1);
        EXPECT_EQ(m_errors, "");
    }
}

TEST_F(CommandsTest, StatusSaysWhyTheListsCannotBeFetched)
{
    const std::string server = "http://127.0.0.1:" + std::to_string(test::ClosedPort());
    m_desktop.SetPolicy("WebServer", server);
    EXPECT_EQ(Do({"status"}), 5);
    EXPECT_EQ(m_errors, "The vendor's lists could not be fetched from " + server +
                            ": Attempt to connect to the server failed.\n");
    EXPECT_THAT(m_output, HasSubstr("\nLoadcalc 8 "));
}

TEST_F(CommandsTest, WhatIsNoListIsNoAnswerAndEachStoreIsReadTwiceAtMost)
{
    FaultServer server;
    m_desktop.SetPolicy("WebServer", server.Url(""));
    m_desktop.SetWinIniFolder("CommonDirectory", m_desktop.Folder());
    m_desktop.Write("VelmoUpd.ini", "[Loadcalc 8]\r\nCanCallCheckUpOnStartup=1 'True\r\n");
    server.Serve("/pub/demo/version.ini", "<html>[Loadcalc 8]</html>");
    EXPECT_EQ(Do({"status"}), 5);
    EXPECT_EQ(m_errors, "The vendor's lists could not be fetched from " + server.Url("") +
                            ": What the server sent is no version list.\n");
    server.Serve("/pub/demo/version.ini", "[Loadcalc 8]\r\nMajor=8\r\n");
    (void)test::TakeCountedReads();
    EXPECT_EQ(Do({"status"}), 0);
    for (const auto& [file, reads] : test::TakeCountedReads())
    {
        EXPECT_LE(reads, 2) << file;
    }
    EXPECT_EQ(Do({"equipment"}), 5);
    EXPECT_EQ(m_errors, "The equipment list could not be fetched from " + server.Url("") +
                            ": Requested item could not be located.\n");
}

TEST_F(CommandsTest, InspectPrintsEveryPropertyOfEveryFile)
{
    const std::string program = WriteProgram("program.exe");
    const std::string text = m_desktop.Write("notes.txt", "no program");
    EXPECT_EQ(Do({"inspect", program}), 0);
    EXPECT_THAT(m_output, testing::StartsWith("FullPathName: " + program + "\n"));
    EXPECT_THAT(m_output, HasSubstr("\nVerFile: 8.02.0014\n"));
    EXPECT_THAT(m_output, HasSubstr("\nCompanyName: Arbor Works\n"));
    EXPECT_EQ(std::count(m_output.begin(), m_output.end(), '\n'), 18);
    EXPECT_EQ(m_errors, "");

    EXPECT_EQ(Do({"inspect", text, program}), 1);
    EXPECT_EQ(m_errors, "The file " + text + " has no version resource.\n");
    EXPECT_THAT(m_output, HasSubstr("\nVerFile: 8.02.0014\n"));

    EXPECT_EQ(Do({"inspect", m_desktop.Folder() + "none.exe"}), 1);
    EXPECT_EQ(m_errors, "There is no file " + m_desktop.Folder() + "none.exe.\n");
    EXPECT_EQ(m_output, "");
}

TEST_F(CommandsTest, EquipmentPrintsTheGridsTextsAndWhetherAnythingNeedsAnUpdate)
{
    FaultServer server;
    m_desktop.SetPolicy("WebServer", server.Url(""));
    m_desktop.SetWinIniFolder("CommonDirectory", m_desktop.Folder());
    m_desktop.Write("kestrel.mdb", m_desktop.Read(test::TestDataPath(
                                       "access/equipment/plain_datetime_v2000.mdb")));
    server.Serve("/pub/demo/version.ini", "[Loadcalc 8]\r\nMajor=8\r\n");
    const std::tuple<const char*, int, const char*> rows[] = {{"3/15/2004", 0, "No"},
                                                              {"3/16/2004", 3, "Yes"}};
    for (const auto& [date, exitCode, end] : rows)
    {
        SCOPED_TRACE(date);
        server.Serve("/pub/demo/manufver.ini",
                     std::string("[Kestrel]\r\n1MDBFilename=kestrel.mdb\r\n1ReleaseDate=") + date +
                         "\r\n12SpeedAC=X\r\n");
        EXPECT_EQ(Do({"equipment"}), exitCode);
        EXPECT_THAT(m_output, testing::StartsWith("Section Name  MDB EXE      Picture EXE  "));
        EXPECT_THAT(m_output, HasSubstr("  Wtr Htr\n"));
        EXPECT_THAT(m_output, testing::ContainsRegex(std::string("\nKestrel  .*  3/15/2004  .*  ") +
                                                     date + " .* " + end + " .* X\n"));
        EXPECT_EQ(std::count(m_output.begin(), m_output.end(), '\n'), 3);
        EXPECT_EQ(m_errors, "");
    }
}

TEST_F(CommandsTest, InspectReadsAFieldOfADatabase)
{
    const std::tuple<std::vector<std::string>, const char*, std::string> rows[] = {
        {{"plain_datetime_v2000.mdb", "header", "RELEASEDATE"}, "3/15/2004\n", ""},
        {{"date_null.mdb", "Header", "ReleaseDate"}, "\n", ""},
        {{"no_header_table.mdb", "Header", "x"}, "", "There is no table \"Header\"."},
        {{"no_release_field.mdb", "Header", "x"}, "", "Table \"Header\" has no field \"x\"."},
        {{"header_no_rows.mdb", "Header", "ReleaseDate"}, "", "Table \"Header\" has no rows."},
        {{"plain_datetime_v2000.mdb"}, "Database Installed Version: 3/15/2004\n", ""},
        {{"date_null.mdb"}, "Database Installed Version: -\n", "The first release date is empty."},
        {{"../broken/encoded_rc4.mdb"},
         "Database Installed Version: -\n",
         "The database is encoded."},
    };
    for (auto [arguments, output, error] : rows)
    {
        SCOPED_TRACE(testing::PrintToString(arguments));
        arguments[0] = test::TestDataPath("access/equipment/" + arguments[0]);
        error = error.empty() ? "" : arguments[0] + ": " + error + "\n";
        arguments.insert(arguments.begin(), "inspect");
        EXPECT_EQ(Do(arguments), error.empty() ? 0 : 1);
        EXPECT_EQ(m_output, output);
        EXPECT_EQ(m_errors, error);
    }
}

TEST_F(CommandsTest, AWrongCommandLineIsExplained)
{
    const std::vector<std::string> rows[] = {
        {}, {"unknown"}, {"status", "more"}, {"status", "--all"}, {"inspect"}};
    for (const auto& arguments : rows)
    {
        EXPECT_EQ(Do(arguments), 2) << testing::PrintToString(arguments);
        EXPECT_TRUE(m_output.empty() && !m_errors.empty());
    }
    EXPECT_EQ(Do({"--help"}), 0);
    EXPECT_THAT(m_output, testing::AllOf(HasSubstr("status"), HasSubstr("inspect")));
}

} // namespace
} // namespace velmo::companion
