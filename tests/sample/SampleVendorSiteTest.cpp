#include "sample/SampleVendorSite.h"

#include "catalogue/ProgramCatalogue.h"
#include "catalogue/ProgramTable.h"
#include "platform/PrivateProfile.h"
#include "sample/SampleEquipment.h"
#include "sample/SampleVersionList.h"
#include "tests/support/TemporaryDesktop.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <regex>
#include <set>
#include <sstream>

namespace velmo::sample
{
namespace
{

using testing::EndsWith;
using testing::HasSubstr;
using testing::StartsWith;

constexpr std::string_view kServer = "http://127.0.0.1:8123";

std::vector<std::string> SectionNames(const std::string& list)
{
    std::vector<std::string> names;
    std::istringstream lines(list);
    for (std::string line; std::getline(lines, line);)
    {
        if (line.starts_with('['))
        {
            names.push_back(line.substr(1, line.rfind(']') - 1));
        }
    }
    return names;
}

class SampleVendorSiteTest : public testing::Test
{
  protected:
    /// A list of the site as a file of the desktop.
    std::string Download(std::string_view name) const
    {
        const SiteFile* file = m_site.Find("/pub/demo/" + std::string(name));
        return file != nullptr ? m_desktop.Write(name, file->bytes) : std::string();
    }

    static std::string Read(std::string_view section, std::string_view key, std::string_view file)
    {
        return platform::GetPrivateProfileText(section, key, "", 256, file);
    }

    /// The path behind an address of this server.
    [[nodiscard]] const SiteFile* Follow(std::string_view address) const
    {
        return address.starts_with(kServer)
                   ? m_site.Find(address.substr(kServer.size(), address.find('#') - kServer.size()))
                   : nullptr;
    }

    test::TemporaryDesktop m_desktop;
    SampleVendorSite m_site{std::string(kServer)};
};

TEST_F(SampleVendorSiteTest, TheVersionListNamesProgramsOfTheCatalogueOnly)
{
    const std::string file = Download("version.ini");
    std::vector<std::string> sections = SectionNames(m_desktop.Read("version.ini"));
    ASSERT_EQ(sections.back(), "News Headlines");
    sections.pop_back();
    EXPECT_EQ(sections.size(), kListedVersions.size());
    for (const std::string& section : sections)
    {
        SCOPED_TRACE(section);
        const std::int32_t index = IndexOfName(section);
        EXPECT_EQ(NameOfIndex(index), section);
        const ListedVersion* listed = ListedVersionOf(index);
        ASSERT_NE(listed, nullptr);
        EXPECT_EQ(Read(section, "Major", file), std::to_string(listed->version.majorNumber));
        EXPECT_EQ(Read(section, "Minor", file), std::to_string(listed->version.minorNumber));
        EXPECT_EQ(Read(section, "Revision", file), std::to_string(listed->version.revision));
        const std::string setup = Read(section, "Demo URL", file);
        EXPECT_EQ(Follow(setup) != nullptr, !listed->setup.empty()) << setup;
    }
}

TEST_F(SampleVendorSiteTest, EveryHeadlineLeadsToAPage)
{
    const std::string block =
        platform::GetPrivateProfileSectionBlock("News Headlines", 32767, Download("version.ini"));
    std::istringstream lines(block);
    std::set<std::string> links;
    for (std::string line; std::getline(lines, line, '\0') && !line.empty();)
    {
        SCOPED_TRACE(line);
        const std::size_t bar = line.find('|');
        ASSERT_NE(bar, std::string::npos);
        EXPECT_EQ(line.find('='), std::string::npos);
        const SiteFile* page = Follow(line.substr(bar + 1));
        ASSERT_NE(page, nullptr);
        EXPECT_THAT(page->contentType, StartsWith("text/html"));
        links.insert(line.substr(bar + 1));
    }
    EXPECT_EQ(links.size(), 12U);
}

TEST_F(SampleVendorSiteTest, ServesEveryAddressOfTheCatalogue)
{
    const VendorServer server{std::string(kServer), std::string(kServer)};
    for (const ProgramEntry& row : kPrograms)
    {
        SCOPED_TRACE(row.displayName);
        if (!row.informationPage.empty())
        {
            const SiteFile* page = Follow(InformationPageOfIndex(server, row.index));
            ASSERT_NE(page, nullptr);
            EXPECT_THAT(page->bytes, HasSubstr(std::string(row.displayName)));
        }
        const SiteFile* update = Follow(UpdatePageOfIndex(server, row.index));
        ASSERT_NE(update, nullptr);
        EXPECT_EQ(update->bytes.find("id=\"updatetext\"") != std::string::npos,
                  !row.updatePage.empty());
        const SiteFile* setup = Follow(DemoSetupOfIndex(server, row.index));
        ASSERT_NE(setup, nullptr);
        EXPECT_THAT(setup->bytes, StartsWith("MZ"));
    }
    const SiteFile* news = m_site.Find("/web/newsroom/index.htm");
    ASSERT_NE(news, nullptr);
    EXPECT_THAT(news->bytes, HasSubstr("id=\"latestnews\""));
}

TEST_F(SampleVendorSiteTest, LinksBetweenPagesLeadSomewhere)
{
    for (const auto& [path, file] : m_site.Files())
    {
        if (!file.contentType.starts_with("text/html"))
        {
            continue;
        }
        SCOPED_TRACE(path);
        constexpr std::string_view kLink = "href=\"";
        for (std::size_t at = file.bytes.find(kLink); at != std::string::npos;
             at = file.bytes.find(kLink, at + 1))
        {
            const std::size_t start = at + kLink.size();
            const std::string target =
                file.bytes.substr(start, file.bytes.find_first_of("\"#", start) - start);
            EXPECT_NE(m_site.Find(target), nullptr) << target;
        }
    }
}

TEST_F(SampleVendorSiteTest, TheManufacturerListKeepsItsFormat)
{
    const std::string file = Download("manufver.ini");
    EXPECT_EQ(Read("Manufver General", "Server Address HTTP", file), kServer);
    EXPECT_EQ(Read("Manufver General", "Server Folder MDBs HTTP", file), kDatabaseFolder);

    std::vector<std::string> sections = SectionNames(m_desktop.Read("manufver.ini"));
    ASSERT_EQ(sections.front(), "Manufver General");
    sections.erase(sections.begin());
    EXPECT_EQ(sections.size(), 60U);
    const std::regex date("[1-9][0-9]?/[1-9][0-9]?/20[0-9][0-9]");
    std::set<std::string> files;
    std::size_t withPictures = 0;
    for (const std::string& section : sections)
    {
        SCOPED_TRACE(section);
        EXPECT_GT(std::stoul("0" + Read(section, "MDBSetupFileSize", file)), 100'000U);
        if (const std::string setup = Read(section, "PictureSetupFilename", file); !setup.empty())
        {
            ++withPictures;
            EXPECT_THAT(setup, EndsWith(".exe"));
            EXPECT_TRUE(files.insert(setup).second);
            EXPECT_TRUE(std::regex_match(Read(section, "DatePicturesModified", file), date));
            EXPECT_NE(Read(section, "DateCheckerPictureFile", file), "");
        }
        int number = 1;
        for (std::string database;
             !(database = Read(section, std::to_string(number) + "MDBFilename", file)).empty();
             ++number)
        {
            EXPECT_TRUE(files.insert(database).second) << database;
            EXPECT_TRUE(std::regex_match(
                Read(section, std::to_string(number) + "ReleaseDate", file), date));
        }
        EXPECT_GT(number, 1) << "a section without databases";
        // Nothing stands behind the first missing number.
        EXPECT_EQ(Read(section, std::to_string(number + 1) + "MDBFilename", file), "");
    }
    EXPECT_EQ(files.size() - withPictures, 200U);
    EXPECT_GT(withPictures, 45U);
}

} // namespace
} // namespace velmo::sample
