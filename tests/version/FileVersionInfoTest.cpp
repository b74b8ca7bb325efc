#include "version/CFileVersionInfo.h"

#include "sample/PeImageWriter.h"
#include "tests/support/TemporaryDesktop.h"
#include "tests/version/NeImage.h"

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
                         {u"LegalTrademarks", u"Arbor\u2122 \u0106apek \u2264 \u4E2D"},
                         {u"OriginalFilename", u"Pumps8.exe"},
                         {u"ProductName", u" Pumps "},
                         {u"ProductVersion", u"8,2,0,15 beta"}}}};
    return version;
}

TEST_F(FileVersionInfoTest, TextsAreReadFromImagesOfBothWidths)
{
    for (const bool is64Bit : {false, true})
    {
        CFileVersionInfo info;
        info.FullPathName(Write(AllTexts(), is64Bit));
        EXPECT_TRUE(info.Available());
        EXPECT_EQ(info.CompanyName() + "|" + info.FileDescription() + "|" + info.FileVersion() +
                      "|" + info.InternalName() + "|" + info.LegalCopyright() + "|" +
                      info.LegalTrademarks() + "|" + info.OriginalFilename() + "|" +
                      info.ProductName() + "|" + info.ProductVersion(),
                  "Arbor Works|Pump sizing|8.02.0015|pumps|\u00A9 Arbor|Arbor\u2122 Capek = ?|"
                  "Pumps8.exe| Pumps |8,2,0,15 beta");
        EXPECT_TRUE(info.Language().starts_with("English")) << info.Language();
    }
}

TEST_F(FileVersionInfoTest, A16BitProgramsVersionIsRead)
{
    CFileVersionInfo info;
    info.FullPathName(m_desktop.Write("program.exe", test::NeImage()));
    EXPECT_TRUE(info.Available());
    EXPECT_EQ(info.VerFile(), "3.01.0103");
    EXPECT_EQ(info.FileVersion(), "3.1 \u00FC");
    EXPECT_EQ(info.CompanyName(), "Arbor");
    EXPECT_TRUE(info.Language().starts_with("German")) << info.Language();
}

TEST_F(FileVersionInfoTest, BuildAndRevisionShareTheThirdGroup)
{
    constexpr std::pair<std::array<std::uint16_t, 4>, const char*> kRows[] = {
        {{1, 2, 0, 5}, "1.02.0005"},
        {{8, 0, 1, 23}, "8.00.0123"},
        {{1, 2, 0, 12345}, "1.02.12345"},
        {{3, 10, 12, 7}, "3.10.1207"},
        {{2, 5, 99, 99}, "2.05.9999"},
        {{2, 5, 100, 3}, "2.05.10003"},
        {{2, 5, 32767, 1}, "2.05.3276701"},
        {{2, 5, 32768, 12345}, "2.05.12345"},
        {{65535, 65535, 65535, 1}, "65535.65535.0001"}};
    for (const auto& [words, text] : kRows)
    {
        SCOPED_TRACE(text);
        VersionResource version{.structureVersion = 0x00030012, .fileVersion = words};
        const CFileVersionInfo file = Read(version);
        EXPECT_EQ(file.VerFile(), text);
        EXPECT_EQ(file.VerProduct(), "0.00.0000");
        EXPECT_EQ(file.VerStructure(), "3.18");
        std::swap(version.fileVersion, version.productVersion);
        EXPECT_EQ(Read(version).VerProduct(), text);
    }
}

TEST_F(FileVersionInfoTest, TheFixedNumbersReadAsWordsAndTheKindIsKeptWhereAFileHasNone)
{
    constexpr struct
    {
        std::uint32_t flags, os, type, subtype; ///< The flags whatever their mask says.
        const char *flagsText, *osText, *typeText, *subtypeText;
    } kRows[] = {
        {0x3F, 0x10001, 1, 1, "Debug PreRel Patched Private Info Special", "DOS-Win16",
         "Application", ""},
        {0x03, 0x10004, 4, 0, "Debug PreRel", "DOS-Win32", "Font", ""},
        {0x24, 0x20002, 4, 1, "Patched Special", "OS/2-16 PM-16", "Font", "Raster Font"},
        {0x18, 0x30003, 3, 11, "Private Info", "OS/2-16 PM-32", "Driver", "Raster Font"},
        {0xFFFFFFC0, 0x40004, 3, 10, "", "NT-Win32", "Driver", "Comm drv"},
        {0, 0x00004, 4, 4, "", "Unknown", "Font", "Comm drv"},
        {0, 0x40000, 3, 0, "", "Unknown", "Driver", "Unknown"},
        {0, 0, 3, 1, "", "Unknown", "Driver", "Printer drv"},
        {0, 0, 3, 8, "", "Unknown", "Driver", "Installable"},
        {0, 0, 2, 3, "", "Unknown", "DLL", "Installable"},
        {0, 0, 4, 3, "", "Unknown", "Font", "TrueType Font"},
        {0, 0, 5, 1, "", "Unknown", "VxD", "TrueType Font"},
        {0, 0, 7, 1, "", "Unknown", "Lib", "TrueType Font"},
        {0, 0, 6, 1, "", "Unknown", "Unknown", "TrueType Font"},
    };
    CFileVersionInfo info; // One instance reads them one after the other.
    for (const auto& row : kRows)
    {
        VersionResource version{.flagsMask = 0, .flags = row.flags, .os = row.os};
        version.type = row.type;
        version.subtype = row.subtype;
        info.FullPathName(Write(version));
        EXPECT_EQ(info.FileFlags(), row.flagsText);
        EXPECT_EQ(info.FileOS(), row.osText);
        EXPECT_EQ(info.FileType(), row.typeText);
        EXPECT_EQ(info.FileSubType(), row.subtypeText) << row.type << " " << row.subtype;
    }
}

TEST_F(FileVersionInfoTest, WithoutAVersionEverythingElseIsKept)
{
    m_desktop.Write("none.exe", sample::WritePeImage({}));
    m_desktop.Write("text.exe", "MZ, but no program");
    m_desktop.Write("empty.exe", "");
    for (const char* name : {"none.exe", "text.exe", "empty.exe", "", "missing.exe"})
    {
        SCOPED_TRACE(name);
        const std::string path = m_desktop.Folder() + name;
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
    EXPECT_TRUE(info.Language().starts_with("German")) << info.Language();

    version.translations = {{0x1234, 0x04E4}};
    info = Read(version);
    EXPECT_EQ(info.FileVersion(), "");
    EXPECT_FALSE(info.Language().starts_with("German"));
}

TEST_F(FileVersionInfoTest, TextsThatAFileLacksOrDoesNotNameAreKeptAndEmptyOnesTaken)
{
    const VersionResource version{
        .strings = {{u"040904B0", {{u"CompanyName", u""}, {u"ProductName", u"Fans"}}}}};
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

    // Without a translation only the fixed numbers are read.
    VersionResource untranslated = AllTexts();
    untranslated.translations.clear();
    info.FullPathName(Write(untranslated));
    EXPECT_TRUE(info.Available());
    EXPECT_EQ(info.VerFile(), "8.02.0015");
    EXPECT_EQ(info.ProductName(), "Fans");
    EXPECT_NE(info.Language(), "");
}

TEST_F(FileVersionInfoTest, AZeroByteInTheTranslationIsAFaultAfterTheFixedNumbers)
{
    constexpr std::array<std::uint16_t, 2> kTranslations[] = {
        {0, 1200}, {9, 1200}, {0x0400, 1200}, {0x0409, 0}, {0x0409, 0x0400}, {0x0409, 0xE4}};
    for (const auto& [language, codePage] : kTranslations)
    {
        SCOPED_TRACE(testing::Message() << language << " " << codePage);
        VersionResource version = AllTexts();
        version.translations = {{language, codePage}, {0x0409, 1200}};
        CFileVersionInfo info;
        EXPECT_THROW(info.FullPathName(Write(version)), TranslationCodeError);
        EXPECT_TRUE(info.Available());
        EXPECT_EQ(info.VerFile(), "8.02.0015");
        EXPECT_EQ(info.CompanyName() + info.Language(), "");
    }
}

TEST_F(FileVersionInfoTest, OfSeveralResourcesNumberOneInTheBestLanguageIsTaken)
{
    // Numbers and languages, and the version, which ends in the language; empty: unavailable.
    const std::pair<std::vector<std::array<std::uint16_t, 2>>, std::string> rows[] = {
        {{{1, 0x0407}, {1, 0x0009}, {1, 0x0409}, {1, 0}}, "1.00.0000"},
        {{{1, 0x0407}, {1, 0x0009}, {1, 0x0409}}, "1.00.1033"},
        {{{1, 0x0407}, {1, 0x0009}, {1, 0x0809}}, "1.00.0009"},
        {{{1, 0x0809}, {1, 0x040C}, {1, 0x0407}}, "1.00.1031"},
        {{{2, 0x0409}, {1, 0x0407}}, "1.00.1031"},
        {{{2, 0x0409}, {0, 0x0407}}, ""},
    };
    for (const auto& [resources, taken] : rows)
    {
        SCOPED_TRACE(testing::PrintToString(resources));
        PeImage image;
        for (const auto& [number, language] : resources)
        {
            image.versions.push_back(
                {.id = number, .language = language, .fileVersion = {number, 0, 0, language}});
        }
        CFileVersionInfo info;
        info.FullPathName(m_desktop.Write("program.exe", sample::WritePeImage(image)));
        EXPECT_EQ(info.Available(), !taken.empty());
        EXPECT_EQ(info.VerFile(), taken);
    }
}

} // namespace
} // namespace velmo
