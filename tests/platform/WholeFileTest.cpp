#include "platform/MFile.h"
#include "platform/SharedLock.h"
#include "tests/support/TemporaryDesktop.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <thread>
#include <vector>

namespace velmo::platform
{
namespace
{

namespace fs = std::filesystem;

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
    m_desktop.Write("Settings.ini.new", "torn");
    m_desktop.Write("Settings.ini.lock", "");
    fs::create_hard_link(m_desktop.Native("Settings.ini"), m_desktop.Native("Witness.ini"));
    ASSERT_TRUE(MFile::Edit(m_file, Append));
    ASSERT_TRUE(MFile::WriteAll(m_file, m_desktop.Read("Settings.ini") + "!"));
    EXPECT_EQ(m_desktop.Read("Settings.ini"), "old+!");
    EXPECT_EQ(m_desktop.Read("Witness.ini"), "old");
    EXPECT_THAT(MFile::FileNames(m_desktop.Folder()),
                testing::UnorderedElementsAre("Settings.ini", "Witness.ini"));
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
    EXPECT_THAT(MFile::FileNames(m_desktop.Folder()), testing::ElementsAre("Settings.ini"));
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

} // namespace
} // namespace velmo::platform
