#include "platform/DesktopFolders.h"
#include "platform/MFile.h"
#include "sample/PeImageWriter.h"
#include "tests/support/TemporaryDesktop.h"
#include "tests/support/windows/WindowsAnswers.h"
#include "tests/version/NeImage.h"
#include "version/CFileVersionInfo.h"
#include "version/VersionInfoBlock.h"
#include "version/VersionResource.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstring>

namespace velmo
{
namespace
{

using test::VersionDll;

constexpr std::pair<const char*, const std::string& (CFileVersionInfo::*)() const> kTexts[] = {
    {"CompanyName", &CFileVersionInfo::CompanyName},
    {"FileDescription", &CFileVersionInfo::FileDescription},
    {"FileVersion", &CFileVersionInfo::FileVersion},
    {"InternalName", &CFileVersionInfo::InternalName},
    {"LegalCopyright", &CFileVersionInfo::LegalCopyright},
    {"LegalTrademarks", &CFileVersionInfo::LegalTrademarks},
    {"OriginalFilename", &CFileVersionInfo::OriginalFilename},
    {"ProductName", &CFileVersionInfo::ProductName},
    {"ProductVersion", &CFileVersionInfo::ProductVersion},
};

std::string FirstWord(const std::string& text)
{
    return text.substr(0, text.find(' '));
}

std::optional<VersionInfoBlock> ReadBlock(const std::string& path)
{
    const auto file = platform::FileReader::Open(path);
    auto resource = file ? ReadVersionResource(file.Value()) : std::nullopt;
    return resource ? VersionInfoBlock::FromBytes(std::move(*resource)) : std::nullopt;
}

/// Compares texts and language, which are named by @a translation, the bytes of the first.
void CompareTexts(const CFileVersionInfo& info, VersionDll& system, std::string_view translation)
{
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(translation[i]); };
    const auto language = static_cast<std::uint16_t>(byte(0) | byte(1) << 8);
    std::array<char, 40> prefix{};
    std::snprintf(prefix.data(), prefix.size(), "\\StringFileInfo\\%02X%02X%02X%02X\\", byte(1),
                  byte(0), byte(3), byte(2));
    for (const auto& [name, property] : kTexts)
    {
        EXPECT_EQ((info.*property)(), system.Text(prefix.data() + std::string(name)).value_or(""))
            << name;
    }
    const std::string languageName = VersionDll::LanguageName(language);
    EXPECT_EQ(FirstWord(info.Language()),
              languageName.empty() ? "Language" : FirstWord(languageName));
}

/// Compares everything that the system says of the file. True when the file has a version resource.
bool Compare(const std::string& path)
{
    SCOPED_TRACE(path);
    CFileVersionInfo info;
    bool hasFault = false;
    try
    {
        info.FullPathName(path);
    }
    catch (const TranslationCodeError&)
    {
        hasFault = true;
    }
    auto system = VersionDll::Ask(path);
    EXPECT_EQ(info.Available(), system.has_value());
    const auto block = ReadBlock(path);
    if (!system || !block)
    {
        return false;
    }
    const FixedFileInfo fixed = block->FixedInfo();
    const std::string fixedBytes(reinterpret_cast<const char*>(&fixed), sizeof(fixed));
    EXPECT_EQ(fixedBytes, system->Bytes("\\"));
    const std::string translation = system->Bytes("\\VarFileInfo\\Translation");
    EXPECT_EQ(block->Value({"VarFileInfo", "Translation"}).value_or(""), translation);
    const std::size_t whole = translation.substr(0, 4).find('\0');
    EXPECT_EQ(hasFault, !translation.empty() && whole != std::string::npos);
    if (!translation.empty() && !hasFault)
    {
        CompareTexts(info, *system, translation);
    }
    return true;
}

TEST(VersionDllTest, BothReadTheSameOfEveryFileOfTheSystem)
{
    const std::string folder = platform::WindowsDirectory() + "system32\\";
    const auto names = platform::MFile::FileNames(folder);
    EXPECT_GT(names.size(), 500U);
    const auto versions =
        std::ranges::count_if(names, [&](const auto& name) { return Compare(folder + name); });
    EXPECT_GT(versions, 150);
    EXPECT_LT(versions, std::ssize(names));
}

TEST(VersionDllTest, BothReadTheSameOfCompiledResources)
{
    for (const char* name : {"several", "odd", "sparse", "untranslated", "neutral", "driver"})
    {
        EXPECT_TRUE(Compare(std::string(VELMO_VERSION_SAMPLES "/version_") + name + ".exe"));
    }
}

TEST(VersionDllTest, BothReadTheSameOfWrittenImages)
{
    const test::TemporaryDesktop desktop;
    EXPECT_TRUE(Compare(desktop.Write("old.exe", test::NeImage())));
    sample::VersionResource german;
    german.language = 0x0407;
    german.fileVersion = {1, 2, 3, 4};
    german.translations = {{0x0407, 1252}, {0x0409, 1200}};
    german.strings = {{u"040704E4", {{u"FileVersion", u"1,2"}, {u"CompanyName", u""}}}};
    sample::VersionResource english = german;
    english.language = 0x0409;
    english.fileVersion = {4, 3, 2, 1};
    sample::VersionResource second = english;
    second.id = 2;
    sample::VersionResource bare;
    bare.translations.clear();

    const std::pair<std::vector<sample::VersionResource>, bool> rows[] = {
        {{german}, true}, {{german, english}, true}, {{english, second}, true},
        {{bare}, true},   {{second}, false},         {{}, false}};
    for (const auto& [versions, available] : rows)
    {
        for (const bool is64Bit : {false, true})
        {
            const std::string image = sample::WritePeImage({is64Bit, versions});
            EXPECT_EQ(Compare(desktop.Write("program.exe", image)), available);
        }
    }
}

} // namespace
} // namespace velmo
