#include "catalogue/CFileVersionInfo.h"

#include "sample/PeImageWriter.h"
#include "tests/support/TemporaryDesktop.h"

#include <gtest/gtest.h>

#include <array>

namespace velmo
{
namespace
{

using sample::PeImage;
using sample::VersionResource;
using sample::VersionStrings;

class FileVersionInfoTest : public testing::Test
{
  protected:
    std::string Write(const VersionResource& version, bool is64Bit = true) const
    {
        return m_desktop.Write("program.exe", sample::WritePeImage({is64Bit, {version}}));
    }

    CFileVersionInfo Read(const VersionResource& version) const
    {
        CFileVersionInfo info;
        info.FullPathName(Write(version));
        return info;
    }

    test::TemporaryDesktop m_desktop;
};

VersionResource AllTexts()
{
    VersionResource version;
    version.fileVersion = {8, 2, 0, 15};
    version.strings = {{u"040904B0",
                        {{u"CompanyName", u"Arbor Works"},
                         {u"FileDescription", u"Pump sizing"},
                         {u"FileVersion", u"8.02.0015"},
                         {u"InternalName", u"pumps"},
                         {u"LegalCopyright", u"\u00A9 Arbor"},
                         {u"LegalTrademarks", u"Arbor\u2122 5 \u20AC \u4E2D"},
                         {u"OriginalFilename", u"Pumps8.exe"},
                         {u"ProductName", u" Pumps "},
                         {u"ProductVersion", u"8,2,0,15 beta"}}}};
    return version;
}

TEST_F(FileVersionInfoTest, TextsAreReadFromImagesOfBothWidths)
{
    for (const bool is64Bit : {false, true})
    {
        SCOPED_TRACE(is64Bit);
        CFileVersionInfo info;
        info.FullPathName(Write(AllTexts(), is64Bit));
        EXPECT_TRUE(info.Available());
        EXPECT_EQ(info.CompanyName(), "Arbor Works");
        EXPECT_EQ(info.FileDescription(), "Pump sizing");
        EXPECT_EQ(info.FileVersion(), "8.02.0015");
        EXPECT_EQ(info.InternalName(), "pumps");
        EXPECT_EQ(info.LegalCopyright(), "\u00A9 Arbor");
        EXPECT_EQ(info.LegalTrademarks(), "Arbor\u2122 5 \u20AC ?");
        EXPECT_EQ(info.OriginalFilename(), "Pumps8.exe");
        EXPECT_EQ(info.ProductName(), " Pumps ");
        EXPECT_EQ(info.ProductVersion(), "8,2,0,15 beta");
        EXPECT_EQ(info.Language(), "English (United States)");
    }
}

TEST_F(FileVersionInfoTest, BuildAndRevisionShareTheThirdGroup)
{
    struct Row
    {
        std::array<std::uint16_t, 4> words;
        const char* text;
    };
    constexpr std::array kRows{
        Row{{1, 2, 0, 5}, "1.02.0005"},
        Row{{8, 0, 1, 23}, "8.00.0123"},
        Row{{1, 2, 0, 12345}, "1.02.12345"},
        Row{{3, 10, 12, 7}, "3.10.1207"},
        Row{{2, 5, 0, 0}, "2.05.0000"},
        Row{{2, 5, 99, 99}, "2.05.9999"},
        Row{{2, 5, 100, 3}, "2.05.10003"},
        Row{{0, 0, 0, 0}, "0.00.0000"},
        Row{{2, 5, 32767, 1}, "2.05.3276701"},
        Row{{2, 5, 32768, 12345}, "2.05.12345"},
        Row{{65535, 65535, 65535, 1}, "65535.65535.0001"},
    };
    for (const Row& row : kRows)
    {
        SCOPED_TRACE(row.text);
        VersionResource version;
        version.structureVersion = 0x00030012;
        version.fileVersion = row.words;
        const CFileVersionInfo file = Read(version);
        EXPECT_EQ(file.VerFile(), row.text);
        EXPECT_EQ(file.VerProduct(), "0.00.0000");
        EXPECT_EQ(file.VerStructure(), "3.18");
        std::swap(version.fileVersion, version.productVersion);
        EXPECT_EQ(Read(version).VerProduct(), row.text);
    }
}

TEST_F(FileVersionInfoTest, FlagsAreWordsWhateverTheirMaskSays)
{
    struct Row
    {
        std::uint32_t flags;
        const char* text;
    };
    for (const Row& row :
         {Row{0x3F, "Debug PreRel Patched Private Info Special"}, Row{0x03, "Debug PreRel"},
          Row{0x24, "Patched Special"}, Row{0x18, "Private Info"}, Row{0xFFFFFFC0, ""}})
    {
        SCOPED_TRACE(row.flags);
        VersionResource version;
        version.flagsMask = 0;
        version.flags = row.flags;
        EXPECT_EQ(Read(version).FileFlags(), row.text);
    }
}

TEST_F(FileVersionInfoTest, OnlyWholeSystemNumbersHaveAText)
{
    struct Row
    {
        std::uint32_t os;
        const char* text;
    };
    for (const Row& row :
         {Row{0x00010001, "DOS-Win16"}, Row{0x00010004, "DOS-Win32"},
          Row{0x00020002, "OS/2-16 PM-16"}, Row{0x00030003, "OS/2-16 PM-32"},
          Row{0x00040004, "NT-Win32"}, Row{0x00000004, "Unknown"}, Row{0x00040000, "Unknown"}})
    {
        SCOPED_TRACE(row.os);
        VersionResource version;
        version.os = row.os;
        EXPECT_EQ(Read(version).FileOS(), row.text);
    }
}

TEST_F(FileVersionInfoTest, TheKindOfFileIsKeptWhereTheNextFileHasNone)
{
    struct Row
    {
        std::uint32_t type;
        std::uint32_t subtype;
        const char* typeText;
        const char* subtypeText;
    };
    // One instance reads them one after the other.
    constexpr std::array kRows{
        Row{1, 1, "Application", ""},          Row{4, 0, "Font", ""},
        Row{4, 1, "Font", "Raster Font"},      Row{3, 11, "Driver", "Raster Font"},
        Row{3, 10, "Driver", "Comm drv"},      Row{4, 4, "Font", "Comm drv"},
        Row{3, 0, "Driver", "Unknown"},        Row{3, 1, "Driver", "Printer drv"},
        Row{3, 3, "Driver", "Language drv"},   Row{3, 8, "Driver", "Installable"},
        Row{2, 3, "DLL", "Installable"},       Row{4, 2, "Font", "Vector Font"},
        Row{4, 3, "Font", "TrueType Font"},    Row{5, 1, "VxD", "TrueType Font"},
        Row{6, 1, "Unknown", "TrueType Font"}, Row{7, 1, "Lib", "TrueType Font"},
        Row{8, 1, "Unknown", "TrueType Font"}, Row{0, 1, "Unknown", "TrueType Font"},
    };
    CFileVersionInfo info;
    for (const Row& row : kRows)
    {
        SCOPED_TRACE(testing::Message() << row.type << " " << row.subtype);
        VersionResource version;
        version.type = row.type;
        version.subtype = row.subtype;
        info.FullPathName(Write(version));
        EXPECT_EQ(info.FileType(), row.typeText);
        EXPECT_EQ(info.FileSubType(), row.subtypeText);
    }
}

TEST_F(FileVersionInfoTest, WithoutAVersionEverythingElseIsKept)
{
    const std::string none = m_desktop.Write("none.exe", sample::WritePeImage({}));
    const std::string text = m_desktop.Write("text.exe", "MZ, but no program");
    const std::string empty = m_desktop.Write("empty.exe", "");
    for (const std::string& path :
         {none, text, empty, m_desktop.Folder(), m_desktop.Folder() + "missing.exe"})
    {
        SCOPED_TRACE(path);
        CFileVersionInfo fresh;
        fresh.FullPathName(path);
        EXPECT_FALSE(fresh.Available());
        EXPECT_EQ(fresh.VerFile() + fresh.FileVersion() + fresh.FileType() + fresh.Language(), "");

        CFileVersionInfo info = Read(AllTexts());
        info.FullPathName(path);
        EXPECT_EQ(info.FullPathName(), path);
        EXPECT_FALSE(info.Available());
        EXPECT_EQ(info.VerFile(), "8.02.0015");
        EXPECT_EQ(info.FileType(), "Application");
        EXPECT_EQ(info.CompanyName(), "Arbor Works");
    }
}

TEST_F(FileVersionInfoTest, APathWithoutAnAbsoluteFormChangesNothing)
{
    CFileVersionInfo info;
    const std::string path = Write(AllTexts());
    info.FullPathName(m_desktop.Folder() + "x\\..\\program.exe");
    EXPECT_EQ(info.FullPathName(), path);
    m_desktop.Write("program.exe", "gone");
    info.FullPathName("");
    EXPECT_EQ(info.FullPathName(), path);
    EXPECT_TRUE(info.Available());
    info.Refresh();
    EXPECT_FALSE(info.Available());
}

TEST_F(FileVersionInfoTest, TheFirstTranslationNamesTheBlockOfTexts)
{
    VersionResource version;
    version.translations = {{0x0407, 0x04E4}, {0x0409, 1200}};
    version.strings = {{u"040904B0", {{u"FileVersion", u"en"}}},
                       {u"040704e4", {{u"fileVERSION", u"de"}}},
                       {u"040704E4", {{u"FileVersion", u"second"}}}};
    CFileVersionInfo info = Read(version);
    EXPECT_EQ(info.FileVersion(), "de");
    EXPECT_EQ(info.Language(), "German (Germany)");

    version.translations = {{0x1234, 0x04E4}};
    info = Read(version);
    EXPECT_EQ(info.FileVersion(), "");
    EXPECT_EQ(info.Language(), "Language Neutral");
}

TEST_F(FileVersionInfoTest, TextsThatAFileLacksAreKeptAndEmptyOnesTaken)
{
    VersionResource version;
    version.strings = {{u"040904B0", {{u"CompanyName", u""}, {u"ProductName", u"Fans"}}}};
    CFileVersionInfo info = Read(AllTexts());
    info.FullPathName(Write(version));
    EXPECT_EQ(info.CompanyName(), "");
    EXPECT_EQ(info.ProductName(), "Fans");
    EXPECT_EQ(info.InternalName(), "pumps");

    // A text of no length at all, not even its terminating zero, counts as lacking.
    std::string bytes = sample::WritePeImage({true, {version}});
    const std::size_t node = bytes.find(std::string("F\0a\0n\0s\0", 8)) - 32;
    ASSERT_EQ(bytes[node + 2], 5);
    bytes[node + 2] = 0;
    info.FullPathName(m_desktop.Write("program.exe", bytes));
    EXPECT_TRUE(info.Available());
    EXPECT_EQ(info.ProductName(), "Fans");
    CFileVersionInfo fresh;
    fresh.FullPathName(info.FullPathName());
    EXPECT_EQ(fresh.ProductName(), "");
}

TEST_F(FileVersionInfoTest, WithoutATranslationOnlyTheFixedNumbersAreRead)
{
    VersionResource version = AllTexts();
    version.fileVersion = {9, 0, 0, 1};
    version.strings[0].values[0].second = u"Other maker";
    version.translations.clear();
    CFileVersionInfo info = Read(AllTexts());
    info.FullPathName(Write(version));
    EXPECT_TRUE(info.Available());
    EXPECT_EQ(info.VerFile(), "9.00.0001");
    EXPECT_EQ(info.CompanyName(), "Arbor Works");
    EXPECT_EQ(info.Language(), "English (United States)");
}

TEST_F(FileVersionInfoTest, AZeroByteInTheTranslationIsAFaultAfterTheFixedNumbers)
{
    for (const sample::VersionTranslation translation : {sample::VersionTranslation{0x0000, 1200},
                                                         {0x0009, 1200},
                                                         {0x0400, 1200},
                                                         {0x0409, 0},
                                                         {0x0409, 0x0400},
                                                         {0x0409, 0x00E4}})
    {
        SCOPED_TRACE(testing::Message() << translation.language << " " << translation.codePage);
        VersionResource version = AllTexts();
        version.translations = {translation, {0x0409, 1200}};
        CFileVersionInfo info;
        EXPECT_THROW(info.FullPathName(Write(version)), TranslationCodeError);
        EXPECT_TRUE(info.Available());
        EXPECT_EQ(info.VerFile(), "8.02.0015");
        EXPECT_EQ(info.CompanyName() + info.Language(), "");
    }
}

TEST_F(FileVersionInfoTest, OfSeveralResourcesNumberOneInTheBestLanguageIsTaken)
{
    struct Row
    {
        std::vector<std::pair<std::uint16_t, std::uint16_t>> resources; ///< Number, language.
        std::uint16_t taken; ///< Language of number 1; 0xFFFF = unavailable.
    };
    const std::array rows{
        Row{{{1, 0x0407}, {1, 0x0009}, {1, 0x0409}, {1, 0}}, 0},
        Row{{{1, 0x0407}, {1, 0x0009}, {1, 0x0409}}, 0x0409},
        Row{{{1, 0x0407}, {1, 0x0009}, {1, 0x0809}}, 0x0009},
        Row{{{1, 0x0809}, {1, 0x040C}, {1, 0x0407}}, 0x0407},
        Row{{{2, 0x0409}, {1, 0x0407}}, 0x0407},
        Row{{{2, 0x0409}, {0, 0x0407}}, 0xFFFF},
    };
    for (const Row& row : rows)
    {
        SCOPED_TRACE(row.taken);
        PeImage image;
        for (const auto& [number, language] : row.resources)
        {
            VersionResource version;
            version.id = number;
            version.language = language;
            version.fileVersion = {number, 0, 0, language};
            image.versions.push_back(version);
        }
        CFileVersionInfo info;
        info.FullPathName(m_desktop.Write("program.exe", sample::WritePeImage(image)));
        EXPECT_EQ(info.Available(), row.taken != 0xFFFF);
        if (info.Available())
        {
            VersionResource expected;
            expected.fileVersion = {1, 0, 0, row.taken};
            EXPECT_EQ(info.VerFile(), Read(expected).VerFile());
        }
    }
}

} // namespace
} // namespace velmo
