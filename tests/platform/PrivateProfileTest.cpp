#include "platform/PrivateProfile.h"

#include "platform/AnsiText.h"
#include "platform/DesktopFolders.h"
#include "platform/ErrorCode.h"
#include "platform/MFile.h"
#include "platform/SystemProfile.h"
#include "tests/support/TemporaryDesktop.h"

#include <gtest/gtest.h>

#include <atomic>
#include <random>
#include <thread>

namespace velmo::platform
{
namespace
{

using std::string_literals::operator""s;
using std::string_view_literals::operator""sv;

constexpr const char* kDefault = "none";
constexpr const char* kLong = "\xE6\x97\xA5";     // One UTF-16 unit, three bytes here.
constexpr const char* kPair = "\xF0\x9F\x94\xA7"; // Two units.

class PrivateProfileTest : public testing::Test
{
  protected:
    std::string Value(std::string_view section, std::string_view key) const
    {
        return GetPrivateProfileText(section, key, kDefault, 256, m_file);
    }

    std::string Block(std::string_view section, std::size_t size = 32'767) const
    {
        return GetPrivateProfileSectionBlock(section, size,
                                             ReadProfileSection(m_file, section).Value());
    }

    const test::TemporaryDesktop m_desktop;
    const std::string m_file = m_desktop.Folder() + "Profile.ini";
};

constexpr struct
{
    std::string_view file;
    const char *section, *key, *value;
} kValues[] = {
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
    {"[A]\n;k=1\n", "A", ";k", kDefault},
    {"[A]\nk=1\nk=2\n", "A", "k", "1"},
    {"[A]\nk=1\n[A]\nk=2\nj=3\n", "A", "k", "1"},
    {"[A]\nk=1\n[B]\n[A]\nj=3\n", "A", "j", kDefault},
    {"[A]\nk=1\n[B]\nj=2\n", "A", "j", kDefault},
    {"[A]B]\nk=1\n", "A", "k", "1"},
    {"[A]x\nk=1\n", "A", "k", "1"},
    {"[A]\n[V\nk=1\n", "V", "k", "1"},
    {"[A]\n[V\nk=1\n", "A", "k", kDefault},
    {"k=1\n[A]\n", "", "k", kDefault},
    {"[A]\nk=v\x1A", "A", "k", "v"},
    {"[A]\nk=v\0w\nj=x\n"sv, "A", "k", "v"},
    {"\xEF\xBB\xBF[A]\nk=1\n[B]\nk=2\n", "A", "k", kDefault},
    {"\xEF\xBB\xBF[A]\nk=1\n[B]\nk=2\n", "B", "k", "2"},
    {"[\xC4]\n\xD6=\xE4\x80\n", "\xC3\x84", "\xC3\x96", "\xC3\xA4\xE2\x82\xAC"},
    {"[\xC4\x8A]\n\xD6\x9E=1\n", "\xC3\xA4\xC5\xA1", "\xC3\xB6\xC5\xBD", "1"},
    {"\xFF\xFE[\0A\0]\0\n\0k\0=\0\xE5\x65\n\0"sv, "A", "k", "\xE6\x97\xA5"},
    {"[\0A\0]\0\n\0k\0=\0v\0\n\0"sv, "A", "k", kDefault},
};

TEST_F(PrivateProfileTest, ValuesAreFoundByTheSystemsRules)
{
    for (const auto& row : kValues)
    {
        m_desktop.Write("Profile.ini", row.file);
        EXPECT_EQ(Value(row.section, row.key), row.value) << row.file;
    }
}

TEST_F(PrivateProfileTest, ASectionBlockHasEveryLineButCommentsAndEmptyOnes)
{
    m_desktop.Write("Profile.ini",
                    "[Other]\nx=1\n[A]\n k = \"v\" \n\n;c\nplain \n#h=1\nk=2\n[B]\n");
    EXPECT_EQ(Block("a"), "k=\"v\"\0plain\0#h=1\0k=2\0"s);
    EXPECT_EQ(Block("A", 10), "k=\"v\"\0pl"s);
    EXPECT_EQ(Block("A", 2) + Block("A", 0) + Block("B") + Block("C"), "");
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
    // Windows counts UTF-16 units, and a pair is kept or left out as a whole.
    m_desktop.Write("Profile.ini",
                    "\xFF\xFE[\0A\0]\0\n\0k\0=\0\xE5\x65\xE5\x65\x3D\xD8\x27\xDDz\0"sv);
    const std::string units = std::string(kLong) + kLong;
    EXPECT_EQ(GetPrivateProfileText("A", "k", "", 6, m_file), units + kPair + "z");
    EXPECT_EQ(GetPrivateProfileText("A", "k", "", 5, m_file), units + kPair);
    EXPECT_EQ(GetPrivateProfileText("A", "k", "", 4, m_file), units);
    EXPECT_EQ(GetPrivateProfileText("A", "k", "", 2, m_file), kLong);
}

constexpr struct
{
    const char *before, *section;
    std::optional<std::string_view> key, value;
    const char* after;
} kWrites[] = {
    {"[A]\r\nKey=1\r\nj=2\r\n", "a", "kEY", "3", "[A]\r\nKey=3\r\nj=2\r\n"},
    {"[A]\r\nk=1\r\n[B]\r\nj=2\r\n", "A", "n", "3", "[A]\r\nk=1\r\nn=3\r\n[B]\r\nj=2\r\n"},
    {"[A]\r\nk=1\r\n", "N", "n", "3", "[A]\r\nk=1\r\n[N]\r\nn=3\r\n"},
    {"[A]\r\nk=1", "N", "n", "", "[A]\r\nk=1\r\n[N]\r\nn=\r\n"},
    {"[A]\r\nk=1", "A", "n", "2", "[A]\r\nk=1\r\nn=2\r\n"},
    {"[A]\r\nk=1\r\nj=2\r\n", "A", "k", {}, "[A]\r\nj=2\r\n"},
    {"[A]\r\nk=1\r\n", "A", "no", {}, "[A]\r\nk=1\r\n"},
    {"[A]\r\nk=1\r\n[A]\r\nk=2\r\n", "A", {}, {}, "[A]\r\nk=2\r\n"},
    {"[A]\r\n;c\r\nk=1\r\n[B]\r\n", "A", {}, {}, ";c\r\n[B]\r\n"},
    {"[A]\n k = 1 \n\n;c\n[B] x\nj=2\n", "A", "n", "3", "[A]\n k = 1 \n\n;c\nn=3\r\n[B] x\nj=2\n"},
    {"[A]\r\nk=1\r\n\r\n[B]\r\nj=2\r\n", "A", "n", "3", "[A]\r\nk=1\r\nn=3\r\n\r\n[B]\r\nj=2\r\n"},
};

TEST_F(PrivateProfileTest, AWriteChangesOnlyItsOwnLine)
{
    for (const auto& row : kWrites)
    {
        SCOPED_TRACE(row.before);
        m_desktop.Write("Profile.ini", row.before);
        EXPECT_TRUE(WritePrivateProfileText(row.section, row.key, row.value, m_file));
        EXPECT_EQ(m_desktop.Read("Profile.ini"), row.after);
    }
}

TEST_F(PrivateProfileTest, ANewFileIsAnsiOneOfUtf16StaysAndABareNameIsInTheWindowsDirectory)
{
    EXPECT_TRUE(WritePrivateProfileText("A", "\xC3\x84", "1 'True", m_file));
    EXPECT_EQ(m_desktop.Read("Profile.ini"), "[A]\r\n\xC4=1 'True\r\n");
    EXPECT_TRUE(WritePrivateProfileText("Velmo Software", "x", "bare", "win.ini"));
    EXPECT_EQ(GetPrivateProfileText("Velmo Software", "x", "", 9, WindowsDirectory() + "Win.ini"),
              "bare");
    m_desktop.Write("Profile.ini", "\xFF\xFE[\0A\0]\0\r\0\n\0"sv);
    ASSERT_TRUE(WritePrivateProfileText("A", "k", "\xE6\x97\xA5 \xF0\x9F\x94\xA7", m_file));
    EXPECT_EQ(m_desktop.Read("Profile.ini"),
              "\xFF\xFE[\0A\0]\0\r\0\n\0k\0=\0\xE5\x65 \0\x3D\xD8\x27\xDD\r\0\n\0"sv);
}

TEST_F(PrivateProfileTest, AWrittenBlockReplacesTheSectionsLinesButItsComments)
{
    m_desktop.Write("Profile.ini", "[A]\r\n;why\r\nk=1\r\n[B]\r\nj=2\r\n");
    EXPECT_TRUE(WritePrivateProfileSectionBlock("a", "x=1\0y=2\0"sv, m_file));
    EXPECT_TRUE(WritePrivateProfileSectionBlock("New", "z=3\0"sv, m_file));
    EXPECT_EQ(m_desktop.Read("Profile.ini"),
              "[A]\r\n;why\r\nx=1\r\ny=2\r\n[B]\r\nj=2\r\n[New]\r\nz=3\r\n");
}

TEST_F(PrivateProfileTest, AWriteThatCannotBeMadeTellsWhyAndADeletionWithoutAFileMakesOne)
{
    EXPECT_TRUE(WritePrivateProfileText("A", "k", std::nullopt, m_file));
    EXPECT_TRUE(WritePrivateProfileText("A", std::nullopt, std::nullopt, m_file));
    EXPECT_EQ(m_desktop.Read("Profile.ini"), "");
    const auto code = [](const Result<Done>& result) {
        return result ? error_code::kNone : result.Failure().code;
    };
    m_desktop.Write("Profile.ini", "[A]\r\nk=1\r\n");
    for (const std::string_view text : {"x\ry"sv, "x\ny"sv, "x\0y"sv})
    {
        EXPECT_EQ(code(WritePrivateProfileText("A", "k", text, m_file)), 87);
        EXPECT_EQ(code(WritePrivateProfileText("A", text, "v", m_file)), 87);
        EXPECT_EQ(code(WritePrivateProfileText(text, "k", "v", m_file)), 87);
    }
    EXPECT_EQ(code(WritePrivateProfileSectionBlock("A", "x=1\r\n[B]\0"sv, m_file)), 87);
    EXPECT_EQ(m_desktop.Read("Profile.ini"), "[A]\r\nk=1\r\n");
    EXPECT_EQ(code(WritePrivateProfileText("A", "k", "v", m_desktop.Folder() + "no\\no.ini")), 3);
    EXPECT_EQ(code(WritePrivateProfileText("A", "k", "v", "")), 2);
}

TEST_F(PrivateProfileTest, AReaderBesideAWriterFindsEveryValueWhole)
{
    const std::string value(200, 'v');
    ASSERT_TRUE(WritePrivateProfileText("A", "k", value, m_file));
    std::atomic<bool> finished = false;
    std::jthread writer([&] {
        for (int i = 0; i < 50; ++i)
        {
            EXPECT_TRUE(WritePrivateProfileText("A", "n", std::to_string(i), m_file));
        }
        finished = true;
    });
    while (!finished)
    {
        EXPECT_EQ(Value("A", "k"), value);
    }
}

/// Lines that Wine's body, other than Windows' own, reads and rewrites by the same rules as ours: no
/// header that is open or has more than one "]", no comment that looks like a key, no entry without a
/// section.
std::string RandomFile(std::mt19937& random)
{
    static constexpr const char* kLines[] = {
        "[A]",   "[ b ]", "[A b]", "k=1",       " K = 2 ", "j =\"q\"",  "j='x' y",   "n=",
        "plain", "",      ";c",    "#k=\xE4;#", "k x=a=b", "n= \" \" ", "\xC4=\x80", "j=\"\"",
    };
    std::string file = "[first]\r\n";
    for (auto count = random() % 12; count > 0; --count)
    {
        file += kLines[random() % std::size(kLines)];
        file += random() % 3 != 0 ? "\r\n" : "\n";
    }
    return file;
}

TEST_F(PrivateProfileTest, WindowsOwnFunctionsReadAndWriteTheSame)
{
    const SystemProfile* system = TheSystemsProfile();
    if (system == nullptr)
    {
        GTEST_SKIP() << "The native build has one body.";
    }
    constexpr const char* kSections[] = {"A", "B", "a B", "first", "none"};
    constexpr const char* kKeys[] = {"k", "J", "n", "k x", "\xC3\x84", "none"};
    const std::string theirs = m_desktop.Folder() + "Theirs.ini";
    std::mt19937 random(20'030'102);
    for (int round = 0; round < 400; ++round)
    {
        const std::string file = RandomFile(random);
        m_desktop.Write("Profile.ini", file);
        m_desktop.Write("Theirs.ini", file);
        const char* section = kSections[random() % std::size(kSections)];
        const char* key = kKeys[random() % std::size(kKeys)];
        const auto value = random() % 3 != 0 ? std::optional("\"new\""sv) : std::nullopt;
        SCOPED_TRACE(file + "-> " + section + "/" + key);
        ASSERT_TRUE(WritePrivateProfileText(section, key, value, m_file));
        ASSERT_TRUE(system->writeText(section, key, value, theirs));
        for (const char* each : kSections)
        {
            const std::string written = ReadProfile(theirs).Value().Block(each);
            ASSERT_EQ(Block(each), written);
            ASSERT_EQ(system->readSection(each, m_file).Block(each), written);
        }
    }
}

constexpr const char* kNone = "\xEF\xBF\xBD";

TEST(AnsiTextTest, EveryByteButFiveHasACharacterAndComesBack)
{
    std::string without;
    for (int number = 0; number < 256; ++number)
    {
        const std::string byte(1, static_cast<char>(number));
        const std::string text = FromAnsi(byte);
        without += text == kNone ? byte : "";
        EXPECT_EQ(ToAnsi(text), text == kNone ? "?" : byte) << number;
    }
    EXPECT_EQ(without, "\x81\x8D\x8F\x90\x9D");
    EXPECT_EQ(FromAnsi("\x80\x8E\x9F\xA0\xE4"), "\xE2\x82\xAC\xC5\xBD\xC5\xB8\xC2\xA0\xC3\xA4");
    EXPECT_EQ(ToAnsi("a\xE6\x97\xA5\xF0\x9F\x94\xA7z\xC4\x80"), "a??z?");
    for (const char* broken : {"\xC3xyz", "\xE4xyz", "\xFFxyz", "\x80xyz"})
    {
        EXPECT_EQ(ToAnsi(broken), "?xyz");
    }
}

TEST(AnsiTextTest, Utf16IsReadWithItsPairsAndItsFaults)
{
    EXPECT_EQ(FromUtf16("a\0\xE5\x65\x3D\xD8\x27\xDD"sv), "a\xE6\x97\xA5\xF0\x9F\x94\xA7");
    EXPECT_EQ(FromUtf16("\x3D\xD8z\0"sv), kNone + "z"s);
    EXPECT_EQ(FromUtf16("\x27\xDDz\0"sv), kNone + "z"s);
    EXPECT_EQ(FromUtf16("z\0\x3D\xD8"sv), "z"s + kNone);
    EXPECT_EQ(FromUtf16("z\0q"sv), "z"s + kNone);
}

TEST(AnsiTextTest, AFilesMarkTellsItsEncoding)
{
    EXPECT_EQ(FromFileBytes("\xFF\xFE\xE4\0"sv), "\xC3\xA4");
    EXPECT_EQ(FromFileBytes("\xEF\xBB\xBF\xC3\xA4"), "\xC3\xA4");
    EXPECT_EQ(FromFileBytes("\xEF\xBB\xBF\xE4z\xED\xA0\x80"), kNone + "z"s + kNone);
    EXPECT_EQ(FromFileBytes("\xEF\xBB\xBF\xF0\x9F\x94z"), kNone + "z"s);
    EXPECT_EQ(FromFileBytes("\xE4"), "\xC3\xA4");
    EXPECT_EQ(FromFileBytes(""), "");
}

} // namespace
} // namespace velmo::platform
