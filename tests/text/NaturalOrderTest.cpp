#include "text/NaturalOrder.h"

#include <gtest/gtest.h>

namespace velmo
{
namespace
{

TEST(NaturalOrderTest, EachTextComesBeforeAllThatFollow)
{
    constexpr const char* kTexts[] = {"",
                                      "-",
                                      "007",
                                      "8.02.9",
                                      "8.02.15",
                                      "8.3",
                                      "10.00.1",
                                      "99999999999999999999998",
                                      "99999999999999999999999",
                                      "?",
                                      "Ask",
                                      "ASK 10",
                                      "ask2",
                                      "Ask10",
                                      "yes",
                                      "\xC3\xA9"};
    for (std::size_t i = 0; i < std::size(kTexts); ++i)
    {
        EXPECT_EQ(CompareNaturally(kTexts[i], kTexts[i]), 0) << kTexts[i];
        for (std::size_t k = i + 1; k < std::size(kTexts); ++k)
        {
            EXPECT_LT(CompareNaturally(kTexts[i], kTexts[k]), 0) << kTexts[i] << " " << kTexts[k];
            EXPECT_GT(CompareNaturally(kTexts[k], kTexts[i]), 0) << kTexts[i] << " " << kTexts[k];
        }
    }
}

TEST(NaturalOrderTest, CaseAndLeadingZerosCountForNothing)
{
    EXPECT_EQ(CompareNaturally("Loadcalc 8.02", "LOADCALC 08.2"), 0);
    EXPECT_EQ(CompareNaturally("0", "000"), 0);
}

} // namespace
} // namespace velmo
