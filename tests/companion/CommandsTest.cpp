#include "companion/Commands.h"

#include "sample/PeImageWriter.h"
#include "tests/support/DeadPort.h"
#include "tests/support/FaultServer.h"
#include "tests/support/TemporaryDesktop.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sstream>

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
        sample::VersionResource version;
        version.fileVersion = {8, 2, 0, 14};
        version.strings = {{u"040904B0", {{u"CompanyName", u"Arbor Works"}}}};
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
    m_desktop.SetWinIniFolder("LoadcalcDirectory", m_desktop.Folder());
    WriteProgram("Loadcalc8.exe");
    const struct
    {
        const char* list;
        int exitCode;
        const char* line;
    } rows[] = {
        {"Revision=14", 0,
         "\nLoadcalc 8        -                            8.02.14            8.02.14         "
         "No\n"},
        {"Revision=15", 3,
         "\nLoadcalc 8        -                            8.02.14            8.02.15         "
         "Yes\n"},
    };
    for (const auto& row : rows)
    {
        server.Serve("/pub/demo/version.ini",
                     std::string("[Loadcalc 8]\r\nMajor=8\r\nMinor=2\r\n") + row.list);
        EXPECT_EQ(Do({"status"}), row.exitCode);
        EXPECT_THAT(m_output, testing::StartsWith("Program           Check for Update on Startup  "
                                                  "Installed Version  Latest Version  Need to "
                                                  "Update\n----------------  ----"));
        EXPECT_THAT(m_output, HasSubstr(row.line));
        EXPECT_EQ(std::count(m_output.begin(), m_output.end(), '\n'), 2 + 33);
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

TEST_F(CommandsTest, AWrongCommandLineIsExplained)
{
    const std::vector<std::string> rows[] = {
        {}, {"unknown"}, {"status", "more"}, {"status", "--all"}, {"inspect"}};
    for (const auto& arguments : rows)
    {
        SCOPED_TRACE(testing::PrintToString(arguments));
        EXPECT_EQ(Do(arguments), 2);
        EXPECT_EQ(m_output, "");
        EXPECT_NE(m_errors, "");
    }
    EXPECT_EQ(Do({"--help"}), 0);
    EXPECT_THAT(m_output, testing::AllOf(HasSubstr("status"), HasSubstr("inspect")));
}

} // namespace
} // namespace velmo::companion
