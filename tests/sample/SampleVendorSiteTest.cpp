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
    const std::string& list = m_site.Find("/pub/demo/version.ini")->bytes;
    std::size_t addresses = 0;
    for (std::size_t at = list.find(kServer); at != std::string::npos;
         at = list.find(kServer, at + 1))
    {
        const std::string address = list.substr(at, list.find('\r', at) - at);
        EXPECT_NE(Follow(address), nullptr) << address;
        ++addresses;
    }
    EXPECT_EQ(addresses, 12U + 2U) << "headlines and setups";
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

} // namespace
} // namespace velmo::sample
