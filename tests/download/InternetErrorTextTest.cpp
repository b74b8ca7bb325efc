#include "download/InternetErrorText.h"

#include <gtest/gtest.h>

namespace velmo
{
namespace
{

TEST(InternetErrorTextTest, SentencesKeepTheirTrailingBlanksAndOtherCodesHaveNoDetails)
{
    EXPECT_EQ(InternetErrorText(12007, "unused"), "Server name could not be resolved.");
    for (const std::int32_t code : {0, 112, 12000, 12037, 12152, -1})
    {
        EXPECT_EQ(InternetErrorText(code), "Error details not available.") << code;
    }
    for (std::int32_t code = 12001; code <= 12036; ++code)
    {
        const bool isGap = code >= 12032 && code <= 12035;
        EXPECT_EQ(InternetErrorText(code) == InternetErrorText(0), isGap) << code;
        const bool endsInBlank =
            code == 12011 || code == 12014 || code == 12016 || code == 12021 || code == 12023;
        EXPECT_EQ(InternetErrorText(code).ends_with(' '), endsInBlank) << code;
    }
}

TEST(InternetErrorTextTest, ForAnExtendedErrorTheServerSpeaks)
{
    const std::string silent = "Extended error returned from server.";
    const std::string accents = std::string(255, 'x') + "\xC3\xA9";
    EXPECT_EQ(InternetErrorText(12003), silent);
    EXPECT_EQ(InternetErrorText(12003, std::string_view("\0hidden", 7)), silent);
    EXPECT_EQ(InternetErrorText(12003, std::string_view("500 Down\0hidden", 15)), "500 Down");
    EXPECT_EQ(InternetErrorText(12003, accents + "more"), accents);
}

} // namespace
} // namespace velmo
