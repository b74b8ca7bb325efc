#include "tests/support/windows/VersionDll.h"
#include "catalogue/CFileVersionInfo.h"
#include "catalogue/PeVersionResource.h"
#include "catalogue/VersionInfoBlock.h"
#include "platform/DesktopFolders.h"
#include "platform/MFile.h"
#include "sample/PeImageWriter.h"
#include "tests/support/TemporaryDesktop.h"

#include <gtest/gtest.h>

#include <array>
#include <cstring>
#include <iostream>

namespace velmo
{
namespace
{

using test::VersionDll;

struct Text
{
    const char* name;
    const std::string& (CFileVersionInfo::*property)() const;
};

constexpr std::array kTexts{
    Text{"CompanyName", &CFileVersionInfo::CompanyName},
    Text{"FileDescription", &CFileVersionInfo::FileDescription},
    Text{"FileVersion", &CFileVersionInfo::FileVersion},
    Text{"InternalName", &CFileVersionInfo::InternalName},
    Text{"LegalCopyright", &CFileVersionInfo::LegalCopyright},
    Text{"LegalTrademarks", &CFileVersionInfo::LegalTrademarks},
    Text{"OriginalFilename", &CFileVersionInfo::OriginalFilename},
    Text{"ProductName", &CFileVersionInfo::ProductName},
    Text{"ProductVersion", &CFileVersionInfo::ProductVersion},
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
    for (const Text& text : kTexts)
    {
        EXPECT_EQ((info.*text.property)(),
                  system.Text(prefix.data() + std::string(text.name)).value_or(""))
            << text.name;
    }
    const std::string name = VersionDll::LanguageName(language);
    EXPECT_EQ(FirstWord(info.Language()), name.empty() ? "Language" : FirstWord(name));
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
    int files = 0;
    int versions = 0;
    for (const std::string& name : platform::MFile::FileNames(folder))
    {
        ++files;
        versions += Compare(folder + name) ? 1 : 0;
    }
    std::cout << files << " files, " << versions << " with a version resource\n";
    EXPECT_GT(files, 500);
    EXPECT_GT(versions, 150);
    EXPECT_LT(versions, files);
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

    struct Row
    {
        std::vector<sample::VersionResource> versions;
        bool available;
    };
    const std::array rows{Row{{german}, true},          Row{{german, english}, true},
                          Row{{english, second}, true}, Row{{bare}, true},
                          Row{{second}, false},         Row{{}, false}};
    for (const Row& row : rows)
    {
        for (const bool is64Bit : {false, true})
        {
            const std::string image = sample::WritePeImage({is64Bit, row.versions});
            EXPECT_EQ(Compare(desktop.Write("program.exe", image)), row.available);
        }
    }
}

} // namespace
} // namespace velmo
