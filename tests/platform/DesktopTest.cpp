#include "platform/DesktopFolders.h"
#include "platform/MachinePolicy.h"
#include "platform/PrivateProfile.h"
#include "platform/UserSettings.h"
#include "tests/support/TemporaryDesktop.h"

#include <gtest/gtest.h>

namespace velmo::platform
{
namespace
{

constexpr const char* kVendor = "Velmo Software";

std::string WinIniFolder(std::string_view name)
{
    return GetPrivateProfileText(kVendor, name, "none", 256, WindowsDirectory() + "Win.ini");
}

TEST(DesktopTest, SharedStoresAreEmptyAtFirstAndAfterEachDesktop)
{
    for (int round = 0; round < 2; ++round)
    {
        SCOPED_TRACE(round);
        const test::TemporaryDesktop desktop;
        EXPECT_EQ(WinIniFolder("CommonDirectory"), "none");
        EXPECT_EQ(ReadUserSetting(kVendor, "Program Folders", "CommonDirectory"), std::nullopt);
        EXPECT_EQ(ReadMachinePolicy("WebServer"), std::nullopt);
        desktop.SetWinIniFolder("CommonDirectory", "C:\\Common");
        desktop.SetUserFolder("CommonDirectory", "D:\\Common");
        desktop.SetPolicy("WebServer", "http://mirror.example");
        EXPECT_EQ(WinIniFolder("COMMONDIRECTORY"), "C:\\Common");
        EXPECT_EQ(ReadUserSetting(kVendor, "program folders", "commondirectory"), "D:\\Common");
        EXPECT_EQ(ReadMachinePolicy("webserver"), "http://mirror.example");
        desktop.SetPolicy("WebServer", "");
        EXPECT_EQ(ReadMachinePolicy("WebServer"), std::nullopt);
    }
}

TEST(DesktopTest, UserSettingsKeepBlanksQuotesAndForeignText)
{
    const test::TemporaryDesktop desktop;
    for (const char* value : {" x ", "\"q\"", "'", "\"", "", "a=b;c", "H\xC3\xB6he \xE6\x97\xA5"})
    {
        SCOPED_TRACE(value);
        ASSERT_TRUE(WriteUserSetting(kVendor, "Odd", "Key", value));
        EXPECT_EQ(ReadUserSetting(kVendor, "Odd", "Key"), value);
    }
}

} // namespace
} // namespace velmo::platform
