#include "platform/AnsiText.h"
#include "platform/DesktopFolders.h"
#include "platform/MFile.h"
#include "tests/support/TemporaryDesktop.h"
#include "tests/support/windows/WindowsAnswers.h"
#include "tests/version/NeImage.h"
#include "version/CFileVersionInfo.h"
#include "version/VersionInfoBlock.h"
#include "version/VersionResource.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cstdio>

namespace velmo
{
namespace
{

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
    const auto fixedBytes = test::AskVersionDll(path, "\\");
    EXPECT_EQ(info.Available(), fixedBytes.has_value());
    const auto file = platform::FileReader::Open(path);
    const auto resource = file ? ReadVersionResource(file.Value()) : std::nullopt;
    if (!fixedBytes || !resource)
    {
        return false;
    }
    const FixedFileInfo fixed = VersionInfoBlock::FromBytes(*resource).value().FixedInfo();
    EXPECT_EQ(std::string(reinterpret_cast<const char*>(&fixed), sizeof(fixed)), *fixedBytes);
    const std::string translation = *test::AskVersionDll(path, "\\VarFileInfo\\Translation");
    EXPECT_EQ(hasFault, translation.substr(0, 4).find('\0') != std::string::npos);
    if (translation.empty() || hasFault)
    {
        return true;
    }
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(translation[i]); };
    std::array<char, 40> prefix{};
    std::snprintf(prefix.data(), prefix.size(), "\\StringFileInfo\\%02X%02X%02X%02X\\", byte(1),
                  byte(0), byte(3), byte(2));
    for (const auto& [name, property] : kTexts)
    {
        const std::string text = *test::AskVersionDll(path, prefix.data() + std::string(name));
        EXPECT_EQ((info.*property)(), platform::FromAnsi(text.c_str())) << name;
    }
    return true;
}

TEST(VersionDllTest, BothReadTheSameOfEveryFileOfTheSystemAndOfCompiledResources)
{
    const std::string folder = platform::WindowsDirectory() + "system32\\";
    const auto names = platform::MFile::FileNames(folder).Value();
    EXPECT_GT(names.size(), 500U);
    const auto versions =
        std::ranges::count_if(names, [&](const auto& name) { return Compare(folder + name); });
    EXPECT_GT(versions, 150);
    EXPECT_LT(versions, std::ssize(names));
    for (const char* name : {"several", "odd", "sparse", "untranslated", "neutral", "driver"})
    {
        EXPECT_TRUE(Compare(std::string(VELMO_VERSION_SAMPLES "/version_") + name + ".exe"));
    }
}

TEST(VersionDllTest, BothReadTheSameOfAnImageOf16Bits)
{
    const test::TemporaryDesktop desktop;
    EXPECT_TRUE(Compare(desktop.Write("old.exe", test::NeImage())));
}

} // namespace
} // namespace velmo
