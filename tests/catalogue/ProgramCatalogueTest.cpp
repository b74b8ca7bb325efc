#include "catalogue/ProgramCatalogue.h"

#include "catalogue/CommonFolder.h"
#include "catalogue/VendorServer.h"
#include "settings/DiagnosticLog.h"
#include "tests/support/TemporaryDesktop.h"

#include <gtest/gtest.h>

namespace velmo
{
namespace
{

TEST(ProgramCatalogueTest, NamesAndIndexesMapToOneAnother)
{
    for (std::int32_t index = 0; index < kProgramCount; ++index)
    {
        EXPECT_EQ(IndexOfName(NameOfIndex(index)), index);
    }
    EXPECT_EQ(NameOfIndex(kProgramCount), "Manufacturer Databases");
    EXPECT_EQ(NameOfIndex(kProgramCount + 1), "");
    EXPECT_EQ(NameOfIndex(-1), "");
    EXPECT_EQ(LocatorNumberOfIndex(kProgramCount), -1);
    for (const char* stranger : {"Manufacturer Databases", "rooftop 4", "Rooftop 4 ", ""})
    {
        EXPECT_EQ(IndexOfName(stranger), 0) << stranger;
        EXPECT_FALSE(NotifiesOfEquipmentByDefault(stranger)) << stranger;
    }
}

TEST(ProgramCatalogueTest, RowsAnswerWithTheirAddresses)
{
    const VendorServer server{"http://w", "http://d"};
    constexpr struct
    {
        const char* name;
        std::int32_t locatorNumber;
        const char *information, *update, *demo;
        bool notifies;
    } kRows[] = {
        {"Loadcalc 8", 12, "http://w/web/hvacr/loadcalc_info.html",
         "http://w/web/hvacr/loadcalc8_ver.html", "http://w/pub/demo/lc8setup.exe", false},
        {"Pipesize 3", -1, "http://w/web/plumbing/pipesize.htm",
         "http://w/web/errors/noupdatepage.txt", "http://w/pub/demo/pipesz30.exe", false},
        {"Chillersize 4", 2, "http://w/web/hvacr/chillersize_info.html",
         "http://w/web/hvacr/chillersize4_ver.html", "http://d/pub/chlsz40.exe", true},
        {"Update Manager 1", 31, "", "http://w/web/errors/noupdatepage.txt",
         "http://w/pub/demo/update_manager_setup.exe", false},
        {"", -1, "", "http://w/web/errors/noupdatepage.txt", "", false},
    };
    for (const auto& row : kRows)
    {
        SCOPED_TRACE(row.name);
        const std::int32_t index = *row.name == '\0' ? -1 : IndexOfName(row.name);
        EXPECT_EQ(LocatorNumberOfIndex(index), row.locatorNumber);
        EXPECT_EQ(InformationPageOfIndex(server, index), row.information);
        EXPECT_EQ(UpdatePageOfIndex(server, index), row.update);
        EXPECT_EQ(DemoSetupOfIndex(server, index), row.demo);
        EXPECT_EQ(NotifiesOfEquipmentByDefault(row.name), row.notifies);
    }
    EXPECT_EQ(kOwnRow, IndexOfName("Update Manager 1"));
    EXPECT_EQ(LocatorNumberOfIndex(IndexOfName("Panelplan 6")), 20);
}

TEST(ProgramCatalogueTest, TheFirstRowOnTheCommandLineIsTheCaller)
{
    EXPECT_EQ(CallerOfCommandLine("\"Wiring 2\" STARTUP DUCTSIZE 6 Pro"), "Ductsize 6");
    EXPECT_EQ(CallerOfCommandLine("Loadcalc8"), "");
}

TEST(VendorServerTest, AMachinePolicyNamesAnotherWebServer)
{
    const test::TemporaryDesktop desktop;
    const std::string logFile = desktop.Write("server.log", "");
    DiagnosticLog log(logFile);
    const VendorServer built = ConfiguredServer(log);
    EXPECT_TRUE(built.webServer.starts_with("http"));
    const std::pair<const char*, std::string> rows[] = {
        {"http://mirror:8080", "http://mirror:8080"},
        {" HTTPS://Mirror.example/velmo// ", "HTTPS://Mirror.example/velmo"},
        {"ftp://mirror", built.webServer},
        {"http://", built.webServer},
        {"mirror", built.webServer},
    };
    for (const auto& [policy, webServer] : rows)
    {
        SCOPED_TRACE(policy);
        desktop.SetPolicy("WebServer", policy);
        desktop.Write("server.log", "");
        const VendorServer server = ConfiguredServer(log);
        EXPECT_EQ(server.webServer, webServer);
        EXPECT_EQ(server.secondDemoServer, built.secondDemoServer);
        const bool ignored = webServer == built.webServer;
        EXPECT_EQ(desktop.Read("server.log").find(policy) != std::string::npos, ignored);
    }
}

TEST(CommonFolderTest, WinIniComesBeforeTheUsersSettingsAndNoneIsALoneBackslash)
{
    const test::TemporaryDesktop desktop;
    EXPECT_EQ(CommonFolder(), "\\");
    EXPECT_EQ(SettingsFilePath(), "\\VelmoUpd.ini");
    EXPECT_EQ(LogFilePath(), "");
    desktop.SetUserFolder("CommonDirectory", "C:\\User");
    EXPECT_EQ(CommonFolder(), "C:\\User\\");
    desktop.SetWinIniFolder("CommonDirectory", "C:\\Common\\");
    EXPECT_EQ(CommonFolder(), "C:\\Common\\");
    EXPECT_EQ(SettingsFilePath(), "C:\\Common\\VelmoUpd.ini");
    EXPECT_EQ(LogFilePath(), "C:\\Common\\VelmoUpd.log");
}

} // namespace
} // namespace velmo
