#include "sample/SampleVendorSite.h"

#include "catalogue/ProgramTable.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace velmo::sample
{
namespace
{

using testing::HasSubstr;
using testing::StartsWith;

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

TEST(SampleVendorSiteTest, ServesWhatTheCatalogueNames)
{
    const SampleVendorSite site("http://127.0.0.1:8123");
    for (const ProgramEntry& row : kPrograms)
    {
        SCOPED_TRACE(row.displayName);
        ASSERT_NE(site.Find(row.demoSetup), nullptr);
        EXPECT_THAT(site.Find(row.demoSetup)->bytes, StartsWith("MZ"));
        for (const std::string_view page : {row.informationPage, row.updatePage})
        {
            ASSERT_TRUE(page.empty() || site.Find(page) != nullptr) << page;
            EXPECT_TRUE(page.empty() ||
                        site.Find(page)->bytes.find(row.displayName) != std::string::npos);
        }
    }
    EXPECT_THAT(site.Find("/pub/demo/manufver.ini")->bytes, StartsWith("[Manufver General]\r\n"));
    EXPECT_THAT(site.Find("/web/hvacr/loadcalc_info.html")->bytes,
                HasSubstr("<title>Loadcalc 8 - Velmo Software</title>"));
    EXPECT_THAT(site.Find("/web/hvacr/loadcalc8_ver.html")->bytes, HasSubstr("New in 8.03.0004<"));
}

TEST(SampleVendorSiteTest, EveryLinkLeadsSomewhereAndEveryPlaceholderIsFilledIn)
{
    const SampleVendorSite site("http://127.0.0.1:8123");
    std::size_t links = 0;
    for (const auto& [path, file] : site.Files())
    {
        for (const char* mark : {"href=\"", "http://127.0.0.1:8123"})
        {
            for (const std::string& target : AllBehind(mark, file.bytes, "\"#\r"))
            {
                EXPECT_TRUE(target.empty() || site.Find(target) != nullptr)
                    << target << " on " << path;
                ++links;
            }
        }
        EXPECT_EQ(file.bytes.find("{{"), std::string::npos) << path;
    }
    EXPECT_GT(links, 34U * 3);
}

} // namespace
} // namespace velmo::sample
