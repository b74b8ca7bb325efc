#include "sample/SampleVendorSite.h"

#include "catalogue/ProgramCatalogue.h"
#include "catalogue/ProgramTable.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace velmo::sample
{
namespace
{

using testing::HasSubstr;
using testing::StartsWith;

constexpr std::string_view kServer = "http://127.0.0.1:8123";

/// What stands behind each @a mark, up to one of @a ends.
std::vector<std::string> AllBehind(std::string_view mark, const std::string& text, const char* ends)
{
    std::vector<std::string> found;
    for (std::size_t at = 0; (at = text.find(mark, at)) != std::string::npos;)
    {
        at += mark.size();
        found.push_back(text.substr(at, text.find_first_of(ends, at) - at));
    }
    return found;
}

class SampleVendorSiteTest : public testing::Test
{
  protected:
    /// The file behind an address of this server.
    [[nodiscard]] const SiteFile* Follow(std::string_view address) const
    {
        return address.starts_with(kServer)
                   ? m_site.Find(address.substr(kServer.size(), address.find('#') - kServer.size()))
                   : nullptr;
    }

    SampleVendorSite m_site{std::string(kServer)};
};

TEST_F(SampleVendorSiteTest, AddressesInTheVersionListLeadToFiles)
{
    const auto paths = AllBehind(kServer, m_site.Find("/pub/demo/version.ini")->bytes, "\r");
    EXPECT_EQ(paths.size(), 12U + 2U) << "headlines and setups";
    for (const std::string& path : paths)
    {
        EXPECT_NE(m_site.Find(path), nullptr) << path;
    }
    EXPECT_THAT(m_site.Find("/pub/demo/manufver.ini")->bytes, StartsWith("[Manufver General]\r\n"));
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
        if (file.contentType.starts_with("text/html"))
        {
            for (const std::string& target : AllBehind("href=\"", file.bytes, "\"#"))
            {
                EXPECT_NE(m_site.Find(target), nullptr) << target << " on " << path;
            }
        }
    }
}

} // namespace
} // namespace velmo::sample
