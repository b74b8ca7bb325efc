#include "text/ByteSizeText.h"
#include "text/LenientNumber.h"
#include "text/NaturalOrder.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <stdexcept>
#include <string>

namespace velmo
{
namespace
{

constexpr double kInfinity = std::numeric_limits<double>::infinity();

TEST(ByteSizeTextTest, ThresholdsAreDecimalAndDivisorsBinary)
{
    const std::pair<double, const char*> kRows[] = {
        {0, "0 Bytes"},           {999.9, "999 Bytes"},
        {1000, "1 KB"},           {1023, "1 KB"},
        {1536, "2 KB"},           {2560, "3 KB"},
        {999'999, "977 KB"},      {1e6, "1.0 MB"},
        {1.5e6, "1.4 MB"},        {999'999'999, "953.7 MB"},
        {1e9, "0.93 GB"},         {5e12, "4656.61 GB"},
        {-5, "-5 Bytes"},         {kInfinity, "0 Bytes"},
        {std::nan(""), "0 Bytes"}};
    for (const auto& [bytes, text] : kRows)
    {
        EXPECT_EQ(ByteSizeText(bytes), text) << bytes;
    }
    EXPECT_EQ(ByteCountText(1234567.9), "1234567");
    EXPECT_EQ(ByteCountText(kInfinity), "1000000000000000");
    EXPECT_EQ(ByteCountText(-kInfinity), "-1000000000000000");
    EXPECT_EQ(ByteCountText(std::nan("")), "0");
}

TEST(LenientNumberTest, TheLeadingNumberCounts)
{
    constexpr std::pair<const char*, double> kRows[] = {
        {"", 0},    {"word", 0},    {"12abc", 12},   {"1 'True", 1}, {"0 'False", 0},
        {"-5", -5}, {"+5", 5},      {" \t-5", -5},   {"--5", 0},     {"1 000", 1},
        {"- 5", 0}, {"2.5", 2.5},   {"2,5", 2},      {".5x", 0.5},   {"5.", 5},
        {".", 0},   {"1.2.3", 1.2}, {"1.5e3", 1500}, {"1E-2", 0.01}, {"1e", 1},
        {"1e+", 1}, {"inf", 0},     {"nan", 0},      {"0x10", 0},    {"0e400", 0}};
    for (const auto& [text, number] : kRows)
    {
        EXPECT_EQ(LenientNumber(text), number) << text;
    }
    const std::string zeros(400, '0');
    for (const std::string& large : {"1" + zeros, "1" + zeros + ".5e-5", std::string("0.001e+400"),
                                     std::string("1e99999999999999999999")})
    {
        EXPECT_EQ(LenientNumber(large), kInfinity) << large;
        EXPECT_EQ(LenientNumber("-" + large), -kInfinity) << large;
    }
    for (const std::string& small :
         {"0." + zeros + "1e5", std::string("1e-400"), std::string("12345e-400"),
          std::string("1e-99999999999999999999")})
    {
        EXPECT_EQ(LenientNumber(small), 0) << small;
    }
}

TEST(LenientNumberTest, AHalfRoundsToTheEvenIntegerAndWhatDoesNotFitIsAnOverflow)
{
    constexpr std::pair<double, int> kRows[] = {
        {0.5, 0}, {1.5, 2}, {2.5, 2}, {-2.5, -2}, {2.51, 3}, {32767.49, 32767}, {-32768.5, -32768}};
    for (const auto& [number, rounded] : kRows)
    {
        EXPECT_EQ(RoundedTo16Bits(number), rounded) << number;
    }
    EXPECT_EQ(RoundedTo32Bits(2147483647.4), 2147483647);
    EXPECT_EQ(RoundedTo32Bits(-2147483648.0), std::numeric_limits<std::int32_t>::min());
    for (const double number : {32767.5, -32769.0, kInfinity})
    {
        EXPECT_THROW((void)RoundedTo16Bits(number), std::overflow_error);
    }
    for (const double number : {2147483647.5, -2147483649.0, -kInfinity})
    {
        EXPECT_THROW((void)RoundedTo32Bits(number), std::overflow_error);
    }
}

TEST(NaturalOrderTest, EachTextComesBeforeAllThatFollow)
{
    const std::string eighteen(18, '9');
    const std::string texts[] = {
        "",  "-",   "007",    "8.02.9", "8.02.15", "8.3", "10.00.1", eighteen + "8", eighteen + "9",
        "?", "Ask", "ASK 10", "ask2",   "Ask10",   "yes", "\xC3\xA9"};
    for (std::size_t i = 0; i < std::size(texts); ++i)
    {
        EXPECT_EQ(CompareNaturally(texts[i], texts[i]), 0) << texts[i];
        for (std::size_t k = i + 1; k < std::size(texts); ++k)
        {
            EXPECT_LT(CompareNaturally(texts[i], texts[k]), 0) << texts[i] << " " << texts[k];
            EXPECT_GT(CompareNaturally(texts[k], texts[i]), 0) << texts[i] << " " << texts[k];
        }
    }
    EXPECT_EQ(CompareNaturally("Loadcalc 8.02", "LOADCALC 08.2"), 0);
    EXPECT_EQ(CompareNaturally("0", "000"), 0);
}

} // namespace
} // namespace velmo
