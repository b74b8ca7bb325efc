#include "catalogue/CommonFolder.h"

#include "tests/support/TemporaryDesktop.h"

#include <gtest/gtest.h>

namespace velmo
{
namespace
{

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
