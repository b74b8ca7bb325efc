#include "text/LenientNumber.h"

#include <gtest/gtest.h>

#include <limits>
#include <stdexcept>
#include <string>

namespace velmo
{
namespace
{

struct Row
{
    const char* text;
    double number;
};

constexpr double kInfinity = std::numeric_limits<double>::infinity();

TEST(LenientNumberTest, TheLeadingNumberCounts)
{
    constexpr Row kRows[] = {
        {"", 0},         {"word", 0},
        {"12abc", 12},   {"1 'True", 1},
        {"0 'False", 0}, {"-5", -5},
        {"+5", 5},       {" \t-5", -5},
        {"--5", 0},      {"1 000", 1},
        {"- 5", 0},      {"2.5", 2.5},
        {"2,5", 2},      {".5x", 0.5},
        {"5.", 5},       {".", 0},
        {"1.2.3", 1.2},  {"1.5e3", 1500},
        {"1E-2", 0.01},  {"1e", 1},
        {"1e+", 1},      {"inf", 0},
        {"nan", 0},      {"0x10", 0},
        {"1e-999", 0},   {"-1e999", -kInfinity},
    };
    for (const Row& row : kRows)
    {
        SCOPED_TRACE(row.text);
        EXPECT_EQ(LenientNumber(row.text), row.number);
    }
    const std::string zeros(400, '0');
    for (const std::string& text :
         {std::string(400, '9'), std::string("1e400"), "1" + zeros + ".5e-5",
          std::string("0.001e+400"), std::string(".1E400"), std::string("1e99999999999999999999")})
    {
        EXPECT_EQ(LenientNumber(text), kInfinity) << text;
    }
    for (const std::string& text :
         {"0." + zeros + "1", "0." + zeros + "1e5", std::string("1e-400"), std::string("0e400"),
          std::string("12345e-400"), std::string("1e-99999999999999999999")})
    {
        EXPECT_EQ(LenientNumber(text), 0) << text;
    }
}

TEST(LenientNumberTest, AHalfRoundsToTheEvenInteger)
{
    constexpr Row kRows[] = {{"", 0},    {"0.5", 0},   {"1.5", 2},
                             {"2.5", 2}, {"-2.5", -2}, {"2.51", 3}};
    for (const Row& row : kRows)
    {
        SCOPED_TRACE(row.text);
        EXPECT_EQ(RoundedTo16Bits(LenientNumber(row.text)), row.number);
    }
}

TEST(LenientNumberTest, AnIntegerThatDoesNotFitIsAnOverflow)
{
    EXPECT_EQ(RoundedTo16Bits(32767.49), 32767);
    EXPECT_EQ(RoundedTo16Bits(-32768.5), -32768);
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

} // namespace
} // namespace velmo
