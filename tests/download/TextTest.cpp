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
    const struct
    {
        double bytes;
        const char* text;
    } rows[] = {
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
    for (const auto& row : rows)
    {
        EXPECT_EQ(ByteSizeText(row.bytes), row.text) << row.bytes;
    }
}

TEST(InternetErrorTextTest, CodesWithoutASentenceHaveNoDetails)
{
    for (const std::int32_t code :
         {0, 1, 2, 112, 12000, 12032, 12033, 12034, 12035, 12037, 12152, -1})
    {
        EXPECT_EQ(InternetErrorText(code), "Error details not available.") << code;
    }
    for (std::int32_t code = 12001; code <= 12036; ++code)
    {
        const bool gap = code >= 12032 && code <= 12035;
        EXPECT_EQ(InternetErrorText(code) == "Error details not available.", gap) << code;
    }
}

TEST(InternetErrorTextTest, SentencesKeepTheirTrailingBlanks)
{
    for (const std::int32_t code : {12011, 12014, 12016, 12021, 12023})
    {
        EXPECT_TRUE(InternetErrorText(code).ends_with(". ")) << code;
    }
    EXPECT_EQ(InternetErrorText(12007, "unused"), "Server name could not be resolved.");
}

TEST(InternetErrorTextTest, ForAnExtendedErrorTheServerSpeaks)
{
    const std::string silent = "Extended error returned from server.";
    std::string accents;
    for (int i = 0; i < 300; ++i)
    {
        accents += "\xC3\xA9";
    }
    EXPECT_EQ(InternetErrorText(12003), silent);
    EXPECT_EQ(InternetErrorText(12003, std::string_view("\0hidden", 7)), silent);
    EXPECT_EQ(InternetErrorText(12003, std::string_view("500 Down\0hidden", 15)), "500 Down");
    EXPECT_EQ(InternetErrorText(12003, std::string(256, 'x')), std::string(256, 'x'));
    EXPECT_EQ(InternetErrorText(12003, std::string(257, 'x')), std::string(256, 'x'));
    EXPECT_EQ(InternetErrorText(12003, accents), accents.substr(0, 512));
}

} // namespace
} // namespace velmo
