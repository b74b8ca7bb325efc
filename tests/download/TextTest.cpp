#include "download/ByteSizeText.h"
#include "download/InternetErrorText.h"

#include <gtest/gtest.h>

#include <limits>

namespace velmo
{
namespace
{

TEST(ByteSizeTextTest, ThresholdsAreDecimalAndDivisorsBinary)
{
    constexpr std::pair<double, const char*> kRows[] = {
        {0, "0 Bytes"},
        {999, "999 Bytes"},
        {999.9, "999 Bytes"},
        {1000, "1 KB"},
        {1023, "1 KB"},
        {1536, "2 KB"},
        {2560, "3 KB"}, // An exact half goes up.
        {999'999, "977 KB"},
        {1'000'000, "1.0 MB"},
        {1'500'000, "1.4 MB"},
        {999'999'999, "953.7 MB"},
        {1'000'000'000, "0.93 GB"},
        {5e12, "4656.61 GB"},
        {-5, "-5 Bytes"},
        {std::numeric_limits<double>::infinity(), "0 Bytes"},
        {std::numeric_limits<double>::quiet_NaN(), "0 Bytes"},
    };
    for (const auto& [bytes, text] : kRows)
    {
        EXPECT_EQ(ByteSizeText(bytes), text) << bytes;
    }
}

TEST(InternetErrorTextTest, SentencesKeepTheirTrailingBlanksAndOtherCodesHaveNoDetails)
{
    EXPECT_EQ(InternetErrorText(12007, "unused"), "Server name could not be resolved.");
    for (const std::int32_t code : {0, 112, 12000, 12032, 12037, 12152, -1})
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
    EXPECT_EQ(InternetErrorText(12003, std::string(256, 'x')), std::string(256, 'x'));
    EXPECT_EQ(InternetErrorText(12003, std::string(257, 'x')), std::string(256, 'x'));
    EXPECT_EQ(InternetErrorText(12003, accents + "more"), accents);
}

} // namespace
} // namespace velmo
