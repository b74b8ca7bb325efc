#include "platform/PrivateProfile.h"

#include "platform/DesktopFolders.h"
#include "platform/MFile.h"
#include "tests/support/TemporaryDesktop.h"
#include "tests/support/Wine.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <thread>
#include <vector>

namespace velmo::platform
{
namespace
{

using std::string_literals::operator""s;
using std::string_view_literals::operator""sv;

constexpr const char* kDefault = "none";
constexpr const char* kSameAsWindows = nullptr;

/// Windows' answer, or Wine's own where that is known to differ.
std::string_view Expected(std::string_view windows, const char* wine)
{
    return wine != nullptr && test::RunsUnderWine() ? std::string_view(wine) : windows;
}

class PrivateProfileTest : public testing::Test
{
  protected:
    std::string Value(std::string_view section, std::string_view key) const
    {
        return GetPrivateProfileText(section, key, kDefault, 256, m_file);
    }

    std::string Block(std::string_view section, std::size_t size = 32'767) const
    {
        return GetPrivateProfileSectionBlock(section, size, m_file);
    }

    const test::TemporaryDesktop m_desktop;
    const std::string m_file = m_desktop.Folder() + "Profile.ini";
};

struct ValueRow
{
    std::string_view file;
    const char* section;
    const char* key;
    const char* value;
    const char* wine = kSameAsWindows;
};

constexpr ValueRow kValues[] = {
    {"[A]\r\nk=v\r\n", "A", "k", "v"},
    {"[A]\nk=v", "a", "K", "v"},
    {"[A]\rk=v\r", "A", "k", "v"},
    {"[A]\r\r\nk=v\r\n", "A", "k", "v"},
    {" [ A b ] \n\tk x = v w \n", "A b", "k x", "v w"},
    {"[A]\nk=v\n", " A ", " k ", "v"},
    {"[A]\nk=\" x \"\n", "A", "k", " x "},
    {"[A]\nk='x'\n", "A", "k", "x"},
    {"[A]\nk=\"\"q\"\"\n", "A", "k", "\"q\""},
    {"[A]\nk=\"x\" y\n", "A", "k", "\"x\" y"},
    {"[A]\nk=\"x'\n", "A", "k", "\"x'"},
    {"[A]\nk=\"\n", "A", "k", "\""},
    {"[A]\nk=\"\"\n", "A", "k", ""},
    {"[A]\nk=\n", "A", "k", ""},
    {"[A]\nk\n", "A", "k", kDefault},
    {"[A]\nk=a=b\n", "A", "k", "a=b"},
    {"[A]\nk=4;5 # 6\n", "A", "k", "4;5 # 6"},
    {"[A]\n#k=1\n//k=2\n", "A", "//k", "2"},
    {"[A]\n ;k=1\nk=2\n", "A", "k", "2"},
    {"[A]\n;k=1\n", "A", ";k", kDefault, "1"},
    {"[A]\nk=1\nk=2\n", "A", "k", "1"},
    {"[A]\nk=1\n[A]\nk=2\nj=3\n", "A", "k", "1"},
    {"[A]\nk=1\n[B]\n[A]\nj=3\n", "A", "j", kDefault},
    {"[A]\nk=1\n[B]\nj=2\n", "A", "j", kDefault},
    {"[A]B]\nk=1\n", "A", "k", "1", kDefault},
    {"[A]x\nk=1\n", "A", "k", "1"},
    {"[A]\n[V\nk=1\n", "V", "k", "1", kDefault},
    {"[A]\n[V\nk=1\n", "A", "k", kDefault, "1"},
    {"k=1\n[A]\n", "", "k", kDefault, "1"},
    {"[A]\nk=v\x1A", "A", "k", "v"},
    {"[A]\nk=v\0w\nj=x\n"sv, "A", "k", "v"},
    {"\xEF\xBB\xBF[A]\nk=1\n[B]\nk=2\n", "A", "k", kDefault, "1"},
    {"\xEF\xBB\xBF[A]\nk=1\n[B]\nk=2\n", "B", "k", "2"},
    {"[\xC4]\n\xD6=\xE4\x80\n", "\xC3\x84", "\xC3\x96", "\xC3\xA4\xE2\x82\xAC"},
    {"[\xC4]\n\xD6=1\n", "\xC3\xA4", "\xC3\xB6", "1", kDefault},
    {"\xFF\xFE[\0A\0]\0\n\0k\0=\0\xE5\x65\n\0"sv, "A", "k", "\xE6\x97\xA5"},
    {"[\0A\0]\0\n\0k\0=\0v\0\n\0"sv, "A", "k", kDefault},
};

TEST_F(PrivateProfileTest, ValuesAreFoundByTheSystemsRules)
{
    for (const ValueRow& row : kValues)
    {
        SCOPED_TRACE(std::string(row.file) + " -> " + row.section + "/" + row.key);
        m_desktop.Write("Profile.ini", row.file);
        EXPECT_EQ(Value(row.section, row.key), Expected(row.value, row.wine));
    }
}

TEST_F(PrivateProfileTest, ASectionBlockHasEveryLineButCommentsAndEmptyOnes)
{
    m_desktop.Write("Profile.ini",
                    "[Other]\nx=1\n[A]\n k = \"v\" \n\n;c\nplain \n#h=1\nk=2\n[B]\n");
    EXPECT_EQ(Block("a"), "k=\"v\"\0plain\0#h=1\0k=2\0"s);
    EXPECT_EQ(Block("A", 10), "k=\"v\"\0pl"s);
    EXPECT_EQ(Block("A", 2), "");
    EXPECT_EQ(Block("A", 0), "");
    EXPECT_EQ(Block("B"), "");
    EXPECT_EQ(Block("C"), "");
}

TEST_F(PrivateProfileTest, ValuesAndDefaultsAreCutToTheBuffer)
{
    const std::string digits(300, '7');
    m_desktop.Write("Profile.ini", "[A]\nk=" + digits + "\n");
    EXPECT_EQ(Value("A", "k"), digits.substr(0, 255));
    EXPECT_EQ(GetPrivateProfileText("A", "k", "", 1, m_file), "");
    EXPECT_EQ(GetPrivateProfileText("A", "k", "", 0, m_file), "");
    EXPECT_EQ(GetPrivateProfileText("A", "none", digits, 256, m_file), digits.substr(0, 255));
    EXPECT_EQ(GetPrivateProfileText("A", "none", "  x  ", 256, m_file), "  x");
    EXPECT_EQ(GetPrivateProfileText("A", "none", "  x  ", 256, ""), "  x");
    EXPECT_EQ(GetPrivateProfileText("A", "k", "x", 256, m_desktop.Folder() + "no\\no.ini"), "x");
}

struct WriteRow
{
    const char* before;
    const char* section;
    std::optional<std::string_view> key;
    std::optional<std::string_view> value;
    const char* after;
    const char* wine = kSameAsWindows;
};

constexpr WriteRow kWrites[] = {
    {"[A]\r\nKey=1\r\nj=2\r\n", "a", "kEY", "3", "[A]\r\nKey=3\r\nj=2\r\n"},
    {"[A]\r\nk=1\r\n[B]\r\nj=2\r\n", "A", "n", "3", "[A]\r\nk=1\r\nn=3\r\n[B]\r\nj=2\r\n"},
    {"[A]\r\nk=1\r\n", "N", "n", "3", "[A]\r\nk=1\r\n[N]\r\nn=3\r\n"},
    {"[A]\r\nk=1", "N", "n", "", "[A]\r\nk=1\r\n[N]\r\nn=\r\n"},
    {"[A]\r\nk=1", "A", "n", "2", "[A]\r\nk=1\r\nn=2\r\n"},
    {"[A]\r\nk=1\r\nj=2\r\n", "A", "k", {}, "[A]\r\nj=2\r\n"},
    {"[A]\r\nk=1\r\n", "A", "no", {}, "[A]\r\nk=1\r\n"},
    {"[A]\r\nk=1\r\n[A]\r\nk=2\r\n", "A", {}, {}, "[A]\r\nk=2\r\n"},
    {"[A]\r\n;c\r\nk=1\r\n[B]\r\n", "A", {}, {}, ";c\r\n[B]\r\n", "[B]\r\n"},
    {"[A]\n k = 1 \n\n;c\n[B] x\nj=2\n", "A", "n", "3", "[A]\n k = 1 \n\n;c\nn=3\r\n[B] x\nj=2\n",
     "[A]\r\nk=1\r\n;c\r\nn=3\r\n[B]\r\nj=2\r\n"},
    {"[A]\r\nk=1\r\n\r\n[B]\r\nj=2\r\n", "A", "n", "3", "[A]\r\nk=1\r\nn=3\r\n\r\n[B]\r\nj=2\r\n",
     "[A]\r\nk=1\r\nn=3\r\n[B]\r\nj=2\r\n"},
};

TEST_F(PrivateProfileTest, AWriteChangesOnlyItsOwnLine)
{
    for (const WriteRow& row : kWrites)
    {
        SCOPED_TRACE(row.before);
        m_desktop.Write("Profile.ini", row.before);
        EXPECT_TRUE(WritePrivateProfileText(row.section, row.key, row.value, m_file))
            << LastProfileFailure();
        EXPECT_EQ(m_desktop.Read("Profile.ini"), Expected(row.after, row.wine));
    }
}

TEST_F(PrivateProfileTest, ANewFileIsCreatedAndABareNameIsInTheWindowsDirectory)
{
    EXPECT_TRUE(WritePrivateProfileText("A", "\xC3\x84", "1 'True", m_file));
    EXPECT_EQ(m_desktop.Read("Profile.ini"), "[A]\r\n\xC4=1 'True\r\n");
    EXPECT_TRUE(WritePrivateProfileText("Velmo Software", "x", "bare", "win.ini"));
    EXPECT_EQ(GetPrivateProfileText("Velmo Software", "x", "", 9, WindowsDirectory() + "Win.ini"),
              "bare");
}

TEST_F(PrivateProfileTest, AWrittenBlockReplacesTheSectionsLines)
{
    m_desktop.Write("Profile.ini", "[A]\r\nk=1\r\n[B]\r\nj=2\r\n");
    EXPECT_TRUE(WritePrivateProfileSectionBlock("a", "x=1\0y=2\0"sv, m_file));
    EXPECT_TRUE(WritePrivateProfileSectionBlock("New", "z=3\0"sv, m_file));
    EXPECT_EQ(Block("A"), "x=1\0y=2\0"s);
    EXPECT_EQ(Block("B"), "j=2\0"s);
    EXPECT_EQ(Block("New"), "z=3\0"s);
    EXPECT_TRUE(WritePrivateProfileSectionBlock("A", "", m_file));
    EXPECT_EQ(Block("A"), "");
}

TEST_F(PrivateProfileTest, AUtf16FileStaysUtf16)
{
    m_desktop.Write("Profile.ini", "\xFF\xFE[\0A\0]\0\r\0\n\0"sv);
    ASSERT_TRUE(WritePrivateProfileText("A", "k", "\xE6\x97\xA5 \xF0\x9F\x94\xA7", m_file));
    EXPECT_EQ(m_desktop.Read("Profile.ini"),
              "\xFF\xFE[\0A\0]\0\r\0\n\0k\0=\0\xE5\x65 \0\x3D\xD8\x27\xDD\r\0\n\0"sv);
    EXPECT_EQ(Value("A", "k"), "\xE6\x97\xA5 \xF0\x9F\x94\xA7");
}

TEST_F(PrivateProfileTest, WhatWouldBecomeALineOfItsOwnIsRefused)
{
    m_desktop.Write("Profile.ini", "[A]\r\nk=1\r\n");
    for (const std::string_view text : {"x\ry"sv, "x\ny"sv, "x\0y"sv})
    {
        EXPECT_FALSE(WritePrivateProfileText("A", "k", text, m_file));
        EXPECT_FALSE(WritePrivateProfileText("A", text, "v", m_file));
        EXPECT_FALSE(WritePrivateProfileText(text, "k", "v", m_file));
    }
    EXPECT_FALSE(WritePrivateProfileSectionBlock("A", "x=1\r\n[B]\0"sv, m_file));
    EXPECT_EQ(LastProfileFailure(), "The text has line breaks");
    EXPECT_EQ(m_desktop.Read("Profile.ini"), "[A]\r\nk=1\r\n");
}

TEST_F(PrivateProfileTest, AFailedWriteTellsItsReasonAndAnAbsentFileHasNothingToDelete)
{
    EXPECT_FALSE(WritePrivateProfileText("A", "k", "v", m_desktop.Folder() + "no\\no.ini"));
    EXPECT_FALSE(LastProfileFailure().empty());
    EXPECT_FALSE(WritePrivateProfileText("A", "k", "v", ""));
    EXPECT_TRUE(WritePrivateProfileText("A", "k", std::nullopt, m_file));
    EXPECT_TRUE(WritePrivateProfileText("A", std::nullopt, std::nullopt, m_file));
    EXPECT_TRUE(LastProfileFailure().empty());
    EXPECT_FALSE(MFile::FileExists(m_file));
}

TEST_F(PrivateProfileTest, WritersOnSeveralThreadsLoseNothing)
{
    constexpr int kWriters = 4;
    constexpr int kKeys = 10;
    std::vector<std::jthread> writers;
    for (int writer = 0; writer < kWriters; ++writer)
    {
        writers.emplace_back([this, writer] {
            for (int key = 0; key < kKeys; ++key)
            {
                WritePrivateProfileText("S" + std::to_string(writer), std::to_string(key), "v",
                                        m_file);
            }
        });
    }
    writers.clear();
    for (int writer = 0; writer < kWriters; ++writer)
    {
        const std::string block = Block("S" + std::to_string(writer));
        EXPECT_EQ(std::count(block.begin(), block.end(), '\0'), kKeys);
    }
}

} // namespace
} // namespace velmo::platform
