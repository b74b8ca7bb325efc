#include "version/VersionResource.h"

#include "platform/MFile.h"
#include "sample/PeImageWriter.h"
#include "tests/support/TemporaryDesktop.h"
#include "version/VersionInfoBlock.h"

#include <gtest/gtest.h>

#include <functional>

namespace velmo
{
namespace
{

constexpr std::size_t kOptionalHeader = 0x58;
constexpr std::size_t kDirectories = kOptionalHeader + 112; // Of a 64-bit image.
constexpr std::size_t kSectionTable = kOptionalHeader + 240;
constexpr std::size_t kResources = 0x400;
constexpr std::uint32_t kSubdirectory = 0x80000000;

sample::VersionResource Sample()
{
    return {
        .fileVersion = {4, 3, 2, 1},
        .strings = {{u"040904B0", {{u"FileVersion", u"4.03.0201"}, {u"ProductName", u"Ducts"}}}}};
}

void Put32(std::string& bytes, std::size_t offset, std::uint32_t value)
{
    for (int i = 0; i < 4; ++i)
    {
        bytes[offset + static_cast<std::size_t>(i)] = static_cast<char>(value >> 8 * i & 0xFF);
    }
}

class BrokenImageTest : public testing::Test
{
  protected:
    std::optional<std::string> Resource(std::string_view image) const
    {
        // Not by way of a temporary file: these are thousands, and none must survive a power cut.
        const std::string path = m_desktop.Folder() + "program.exe";
        EXPECT_TRUE(platform::MFile::DeleteIfExists(path).Ok());
        EXPECT_TRUE(platform::MFile::Append(path, image).Ok());
        const auto file = platform::FileReader::Open(path);
        return file ? ReadVersionResource(file.Value()) : std::string("not opened");
    }

    test::TemporaryDesktop m_desktop;
    std::string m_image = sample::WritePeImage({true, {Sample()}});
    std::string m_resource = sample::WriteVersionResource(Sample());
};

/// Reads all that a version reader asks for; the bytes that it got.
std::size_t ReadEverything(const std::string& resource)
{
    const auto block = VersionInfoBlock::FromBytes(resource);
    if (!block)
    {
        return 0;
    }
    std::size_t size = block->FixedInfo().fileVersionHigh == 0 ? 0 : sizeof(FixedFileInfo);
    for (const char* name : {"FileVersion", "ProductName", "CompanyName"})
    {
        size += block->Value({"StringFileInfo", "040904B0", name}).value_or("").size();
    }
    return size + block->Value({"VarFileInfo", "Translation"}).value_or("").size();
}

TEST_F(BrokenImageTest, ATruncatedImageHasItsWholeResourceOrNone)
{
    const std::size_t end = m_image.find(m_resource) + m_resource.size();
    for (std::size_t length = 0; length <= m_image.size(); ++length)
    {
        const auto resource = Resource(m_image.substr(0, length));
        ASSERT_EQ(resource.has_value(), length >= end) << length;
        ASSERT_EQ(resource.value_or(m_resource), m_resource) << length;
    }
}

TEST_F(BrokenImageTest, ATruncatedResourceLosesItsEndOnly)
{
    std::size_t before = 0;
    for (std::size_t length = 0; length <= m_resource.size(); ++length)
    {
        // A heap block of just this size, so that a sanitizer sees any step beyond it.
        const std::size_t now = ReadEverything(m_resource.substr(0, length));
        ASSERT_GE(now, before) << length;
        before = now;
    }
    EXPECT_EQ(before, sizeof(FixedFileInfo) + 10 + 6 + 4);
}

TEST_F(BrokenImageTest, CraftedDirectoriesAndHeadersLeadNowhere)
{
    const std::pair<const char*, std::function<void(std::string&)>> changes[]{
        {"types lead back to types", [](auto& s) { Put32(s, kResources + 20, kSubdirectory); }},
        {"numbers lead back to types", [](auto& s) { Put32(s, kResources + 44, kSubdirectory); }},
        {"languages lead back to types", [](auto& s) { Put32(s, kResources + 68, kSubdirectory); }},
        {"a type that is no directory", [](auto& s) { Put32(s, kResources + 20, 24); }},
        {"a number that is no directory", [](auto& s) { Put32(s, kResources + 44, 48); }},
        {"numbers beyond the end", [](auto& s) { Put32(s, kResources + 20, 0xFFFFFFF0); }},
        {"65,535 types of each sort", [](auto& s) { Put32(s, kResources + 12, 0xFFFFFFFF); }},
        {"no types", [](auto& s) { Put32(s, kResources + 12, 0); }},
        {"data beyond the section", [](auto& s) { Put32(s, kResources + 72, 0x2200); }},
        {"data before the section", [](auto& s) { Put32(s, kResources + 72, 0x1FFF); }},
        {"data of 4 GiB", [](auto& s) { Put32(s, kResources + 76, 0xFFFFFFFF); }},
        {"no resources", [](auto& s) { Put32(s, kDirectories + 16, 0); }},
        {"resources beyond the sections", [](auto& s) { Put32(s, kDirectories + 16, ~0U); }},
        {"two data directories", [](auto& s) { Put32(s, kDirectories - 4, 2); }},
        {"a header of another system", [](auto& s) { Put32(s, kOptionalHeader, 0x107); }},
        {"a header far away", [](auto& s) { Put32(s, 60, 0xFFFFFFFF); }},
        {"a section outside the file", [](auto& s) { Put32(s, kSectionTable + 60, 0xFFFFFF00); }},
        {"65,535 sections", [](auto& s) { s.replace(0x46, 2, "\xFF\xFF"); }},
        {"a 16-bit image", [](auto& s) { s.replace(0x40, 2, "NE"); }},
    };
    ASSERT_EQ(Resource(m_image), m_resource);
    for (const auto& [what, change] : changes)
    {
        std::string image = m_image;
        change(image);
        EXPECT_NE(image, m_image) << what;
        EXPECT_EQ(Resource(image), std::nullopt) << what;
    }
}

TEST_F(BrokenImageTest, OfAnOverlongResourceOnlyAsMuchIsReadAsATreeCanHold)
{
    Put32(m_image, kSectionTable + 40 + 16, 0x20000);
    Put32(m_image, kResources + 76, 0x18000);
    const auto resource = Resource(m_image + std::string(0x20000, 'x'));
    ASSERT_TRUE(resource);
    EXPECT_EQ(resource->size(), 0xFFFFU);
    EXPECT_TRUE(resource->starts_with(m_resource));
}

TEST_F(BrokenImageTest, AFixedPartThatIsTooShortCountsAsNoneAndANodeOfNoLengthEndsItsBranch)
{
    const std::size_t strings = m_resource.find(std::string("S\0t\0r\0i\0n\0g\0F\0", 14)) - 6;
    for (const char length : {'\0', '\1', '\5'})
    {
        SCOPED_TRACE(static_cast<int>(length));
        std::string resource = m_resource;
        resource.replace(strings, 2, std::string{length, '\0'});
        auto block = VersionInfoBlock::FromBytes(resource);
        ASSERT_TRUE(block);
        EXPECT_EQ(block->FixedInfo().fileVersionHigh, 0x00040003U);
        EXPECT_EQ(block->Value({"StringFileInfo", "040904B0", "FileVersion"}), std::nullopt);
        EXPECT_EQ(block->Value({"VarFileInfo", "Translation"}), std::nullopt);
        resource.replace(0, 2, std::string{length, '\0'});
        EXPECT_FALSE(VersionInfoBlock::FromBytes(resource));

        resource = m_resource;
        resource[2] = length == 0 ? '\0' : '\x33'; // One byte less than the fixed part has.
        block = VersionInfoBlock::FromBytes(resource);
        ASSERT_TRUE(block);
        EXPECT_EQ(block->FixedInfo().signature, 0U);
    }
}

} // namespace
} // namespace velmo
