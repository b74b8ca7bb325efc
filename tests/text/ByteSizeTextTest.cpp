#include "text/ByteSizeText.h"

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

} // namespace
} // namespace velmo
