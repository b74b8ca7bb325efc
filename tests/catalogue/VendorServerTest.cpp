#include "catalogue/VendorServer.h"

#include "catalogue/CommonFolder.h"
#include "settings/DiagnosticLog.h"
#include "tests/support/TemporaryDesktop.h"

#include <gtest/gtest.h>

namespace velmo
{
namespace
{

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
