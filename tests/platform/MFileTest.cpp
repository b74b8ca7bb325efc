#include "platform/MFile.h"

#include "platform/DesktopFolders.h"
#include "platform/FileReader.h"
#include "platform/MachinePolicy.h"
#include "platform/PrivateProfile.h"
#include "platform/SharedLock.h"
#include "platform/UserSettings.h"
#include "tests/support/TemporaryDesktop.h"

#include <gmock/gmock.h>

#include <array>
#include <thread>
#include <vector>

namespace velmo::platform
{
namespace
{

namespace fs = std::filesystem;

class MFileTest : public testing::Test
{
  protected:
    const test::TemporaryDesktop m_desktop;
    const std::string& m_folder = m_desktop.Folder();
};

TEST_F(MFileTest, OnlyAFileIsAFileAndOnlyAFolderAFolder)
{
    m_desktop.Write("Sub\\List.ini", "x");
    EXPECT_TRUE(MFile::FileExists(m_folder + "SUB/list.INI"));
    EXPECT_TRUE(MFile::FolderExists(m_folder + "sub"));
    EXPECT_TRUE(MFile::FolderExists(m_folder + "sub\\"));
    for (const std::string& noFile :
         {std::string(), std::string("C:"), m_folder + "Sub", m_folder + "Sub\\",
          m_folder + "Sub\\List.ini\\", m_folder + "No.ini", m_folder + "No\\No.ini"})
    {
        EXPECT_FALSE(MFile::FileExists(noFile)) << noFile;
    }
    EXPECT_FALSE(MFile::FolderExists(""));
    EXPECT_FALSE(MFile::FolderExists(m_folder + "Sub\\List.ini"));
}

TEST_F(MFileTest, BytesComeBackAsWrittenReplacedOrAdded)
{
    const std::string path = m_folder + "Log.txt";
    ASSERT_TRUE(MFile::Append(path, "one\n"));
    ASSERT_TRUE(MFile::Append(path, std::string_view("\0\xFF", 2)));
    EXPECT_EQ(MFile::ReadAll(path).Value(), std::string("one\n\0\xFF", 6));
    EXPECT_EQ(MFile::ReadAll(path, 6).Value().size(), 6U);
    EXPECT_EQ(MFile::ReadAll(path, 5).Failure().code, 223);
    ASSERT_TRUE(MFile::WriteAll(m_folder + "LOG.TXT", ""));
    EXPECT_EQ(MFile::ReadAll(path).Value(), "");
    ASSERT_TRUE(MFile::CreateFolders(m_folder + "Sub\\Below"));
    EXPECT_THAT(MFile::FileNames(m_folder).Value(), testing::ElementsAre("Log.txt"));
    EXPECT_THAT(MFile::FolderNames(m_folder).Value(), testing::ElementsAre("Sub"));
}

TEST_F(MFileTest, WhatIsMissingHasItsErrorCode)
{
    const std::string noFile = m_folder + "No.ini";
    const std::string noFolder = m_folder + "No\\No.ini";
    EXPECT_EQ(MFile::ReadAll(noFile).Failure().code, 2);
    EXPECT_EQ(MFile::ReadAll(noFolder).Failure().code, 3);
    EXPECT_EQ(MFile::ModificationTime(noFile).Failure().code, 2);
    EXPECT_EQ(MFile::WriteAll(noFolder, "x").Failure().code, 3);
    EXPECT_EQ(MFile::Append(noFolder, "x").Failure().code, 3);
    EXPECT_EQ(MFile::Rename(noFile, m_folder + "New.ini").Failure().code, 2);
    EXPECT_EQ(MFile::ReadAll(m_folder).Ok(), false);
    EXPECT_TRUE(MFile::DeleteIfExists(noFile));
    EXPECT_TRUE(MFile::DeleteIfExists(noFolder));
    EXPECT_TRUE(MFile::RemoveFolder(m_folder + "No"));
    EXPECT_EQ(MFile::FileNames(m_folder + "No").Failure().code, 3);
    EXPECT_EQ(MFile::FolderNames(m_folder + "No\\No").Failure().code, 3);
}

TEST_F(MFileTest, AFileOpenForReadingMayBeRenamedAndItsNameUsedAnew)
{
    const std::string path = m_desktop.Write("List.ini", "old");
    const auto reader = FileReader::Open(path);
    ASSERT_TRUE(reader);
    m_desktop.Write("Old.ini", "older");
    ASSERT_TRUE(MFile::Rename(path, m_folder + "Old.ini"));
    ASSERT_TRUE(MFile::WriteAll(path, "new"));
    EXPECT_EQ(m_desktop.Read("List.ini"), "new");
    EXPECT_EQ(m_desktop.Read("Old.ini"), "old");
    std::array<std::byte, 3> bytes{};
    EXPECT_TRUE(reader.Value().ReadAt(0, bytes));
    EXPECT_EQ(bytes[0], std::byte{'o'});
    EXPECT_FALSE(reader.Value().ReadAt(1, bytes));
}

TEST_F(MFileTest, FoldersAreMadeWithThoseAboveAndRemovedWhenEmpty)
{
    const std::string inner = m_folder + "a\\b c\\d\\";
    ASSERT_TRUE(MFile::CreateFolders(inner));
    ASSERT_TRUE(MFile::CreateFolders(inner));
    EXPECT_TRUE(MFile::FolderExists(m_folder + "A\\B C\\D"));
    EXPECT_EQ(MFile::RemoveFolder(m_folder + "a").Failure().code, 145);
    EXPECT_TRUE(MFile::RemoveFolder(inner));
    EXPECT_FALSE(MFile::FolderExists(inner));
    m_desktop.Write("file", "x");
    EXPECT_FALSE(MFile::CreateFolders(m_folder + "file\\sub"));
}

TEST_F(MFileTest, AModificationTimeIsKeptToTheTickOfFileTimes)
{
    const std::string path = m_desktop.Write("Old.mdb", "x");
    const MFile::Time before1970 = MFile::Time(std::chrono::microseconds(-1'500'000));
    const MFile::Time in2003 = MFile::Time(std::chrono::microseconds(1'041'504'672'123'456));
    for (const MFile::Time time : {before1970, in2003})
    {
        ASSERT_TRUE(MFile::SetModificationTime(path, time));
        EXPECT_EQ(MFile::ModificationTime(path).Value(), time);
    }
}

TEST_F(MFileTest, AFullPathHasADriveAndNoDots)
{
    constexpr std::pair<const char*, const char*> kPaths[] = {
        {"C:\\a\\b.ini", "C:\\a\\b.ini"},
        {"C:/a/./b/../c\\", "C:\\a\\c\\"},
        {"d:\\..\\x", "d:\\x"},
        {"C:\\", "C:\\"},
        {"C:\\..\\..\\a.", "C:\\a"},
        {"C:\\a\\test.. .", "C:\\a\\test"},
        {"C:\\a.\\b..\\c .\\d", "C:\\a\\b.\\c \\d"},
        {"\\\\host\\share\\x", "\\\\host\\share\\x"},
        {"", ""},
    };
    for (const auto& [path, full] : kPaths)
    {
        EXPECT_EQ(MFile::FullPath(path), full) << path;
    }
}

/// A file that is edited or replaced as a whole.
class WholeFileTest : public testing::Test
{
  protected:
    const test::TemporaryDesktop m_desktop;
    const std::string m_file = m_desktop.Write("Settings.ini", "old");
};

std::string Append(std::string_view old)
{
    return std::string(old) + "+";
}

TEST_F(WholeFileTest, ANewFileTakesThePlaceAndNothingElseIsLeft)
{
    // What killed writers left behind.
    m_desktop.Write("Other.ini", "other's");
    fs::create_hard_link(m_desktop.Native("Other.ini"), m_desktop.Native("Settings.ini.new"));
    m_desktop.Write("Settings.ini.lock", "");
    fs::create_hard_link(m_desktop.Native("Settings.ini"), m_desktop.Native("Witness.ini"));
    ASSERT_TRUE(MFile::Edit(m_file, Append));
    ASSERT_TRUE(MFile::WriteAll(m_file, m_desktop.Read("Settings.ini") + "!"));
    EXPECT_EQ(m_desktop.Read("Settings.ini"), "old+!");
    EXPECT_EQ(m_desktop.Read("Witness.ini"), "old");
    EXPECT_EQ(m_desktop.Read("Other.ini"), "other's");
    EXPECT_THAT(MFile::FileNames(m_desktop.Folder()).Value(),
                testing::UnorderedElementsAre("Settings.ini", "Witness.ini", "Other.ini"));
    m_desktop.Write("Settings.ini.new\\x", "");
    EXPECT_EQ(MFile::Edit(m_file, Append).Failure().code, 5);
}

TEST_F(WholeFileTest, TheFilesModeStays)
{
    constexpr fs::perms kPrivate = fs::perms::owner_read | fs::perms::owner_write;
    const fs::path native = m_desktop.Native("Settings.ini");
    fs::permissions(native, kPrivate);
    const fs::perms before = fs::status(native).permissions();
    ASSERT_TRUE(MFile::Edit(m_file, Append));
    EXPECT_EQ(fs::status(native).permissions(), before);
}

TEST_F(WholeFileTest, AReadOnlyFileStaysAsItIs)
{
    const fs::path native = m_desktop.Native("Settings.ini");
    fs::permissions(native, fs::perms::owner_read);
    EXPECT_EQ(MFile::Edit(m_file, Append).Failure().code, 5);
    EXPECT_EQ(MFile::WriteAll(m_file, "new").Failure().code, 5);
    EXPECT_EQ(m_desktop.Read("Settings.ini"), "old");
    fs::permissions(native, fs::perms::owner_all);
}

TEST_F(WholeFileTest, ALinkIsFollowed)
{
    const fs::path link = m_desktop.Native("Link.ini");
    std::error_code refused;
    fs::create_symlink("Settings.ini", link, refused);
    if (refused)
    {
        GTEST_SKIP() << "No links here: " << refused.message();
    }
    ASSERT_TRUE(MFile::Edit(m_desktop.Folder() + "Link.ini", Append));
    EXPECT_EQ(m_desktop.Read("Settings.ini"), "old+");
    EXPECT_TRUE(fs::is_symlink(link));
}

TEST_F(WholeFileTest, AFileThatCannotBeReadIsNotWritten)
{
    constexpr std::uintmax_t kMoreThanIsRead = (1U << 30) + 1;
    fs::resize_file(m_desktop.Native("Settings.ini"), kMoreThanIsRead);
    EXPECT_EQ(MFile::Edit(m_file, Append).Failure().code, 223);
    EXPECT_EQ(fs::file_size(m_desktop.Native("Settings.ini")), kMoreThanIsRead);
    EXPECT_THAT(MFile::FileNames(m_desktop.Folder()).Value(), testing::ElementsAre("Settings.ini"));
}

TEST_F(WholeFileTest, WritersLoseNothingOfOneAnother)
{
    constexpr int kTimes = 25;
    {
        std::vector<std::jthread> writers;
        for (int writer = 0; writer < 4; ++writer)
        {
            writers.emplace_back([this] {
                for (int i = 0; i < kTimes; ++i)
                {
                    EXPECT_TRUE(MFile::Edit(m_file, Append));
                }
            });
        }
    }
    EXPECT_EQ(m_desktop.Read("Settings.ini"), "old" + std::string(4 * kTimes, '+'));
}

TEST_F(WholeFileTest, ALockHasOneHolderAtATime)
{
    constexpr std::chrono::milliseconds kNotAtAll{0};
    {
        const auto first = SharedLock::Take(m_file, kNotAtAll);
        ASSERT_TRUE(first);
        EXPECT_EQ(SharedLock::Take(m_file, kNotAtAll).Failure().code, 33);
        EXPECT_TRUE(SharedLock::Take(m_desktop.Folder() + "Other.ini", kNotAtAll));
    }
    EXPECT_TRUE(SharedLock::Take(m_file, kNotAtAll));
    EXPECT_EQ(SharedLock::Take(m_desktop.Folder() + "no\\x", kNotAtAll).Failure().code, 3);
}

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
