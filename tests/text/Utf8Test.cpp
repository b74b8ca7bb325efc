#include "text/Utf8.h"
#include "text/TextCase.h"

#include <gtest/gtest.h>

namespace velmo
{
namespace
{

TEST(Utf8Test, CharactersAreCountedAndCutWhole)
{
    const std::string text = "a\xC3\xA4\xE2\x82\xAC\xF0\x9F\x94\xA7z";
    EXPECT_EQ(CharacterCount(text), 5U);
    EXPECT_EQ(FirstCharacters(text, 0), "");
    EXPECT_EQ(FirstCharacters(text, 3), "a\xC3\xA4\xE2\x82\xAC");
    EXPECT_EQ(FirstCharacters(text, 9), text);
    EXPECT_EQ(CodePoints(text), U"a\u00E4\u20AC\U0001F527z");
}

TEST(Utf8Test, WhatIsIllFormedOrControlsIsReplaced)
{
    const std::string mark = "\xEF\xBF\xBD";
    for (const char* bad : {"\xFF", "\x80", "\xE4", "\xC3", "\xE2\x82", "\xED\xA0\x80", "\xC0\xAF"})
    {
        SCOPED_TRACE(bad);
        EXPECT_FALSE(IsValidUtf8(bad));
        EXPECT_EQ(ValidUtf8("a" + std::string(bad) + "z").substr(0, 4), "a" + mark);
        EXPECT_TRUE(ValidUtf8("a" + std::string(bad) + "z").ends_with(mark + "z"));
    }
    EXPECT_EQ(WithoutControls("a\r\x1B\x7F\xC2\x9Bz\xC2\xA0"),
              "a" + mark + mark + mark + mark + "z\xC2\xA0");
}

TEST(TextCaseTest, LettersHaveOneCaseInKeys)
{
    EXPECT_EQ(FoldedCase("AZ[\xC3\x84\xC3\x97\xC3\x9E\xC3\x9F\xC5\xA0\xC5\xB8\xC5\xBD\xC5\x92"),
              "az[\xC3\xA4\xC3\x97\xC3\xBE\xC3\x9F\xC5\xA1\xC3\xBF\xC5\xBE\xC5\x93");
    EXPECT_EQ(FoldedCase("\u0391\u03A9\u0401\u042F\u0141"), "\u03B1\u03C9\u0451\u044F\u0142");
    EXPECT_TRUE(EqualInAnyCase("Ab1", "aB1"));
    EXPECT_FALSE(EqualInAnyCase("Ab1", "aB"));
    EXPECT_EQ(Trimmed("  a b "), "a b");
    EXPECT_EQ(Trimmed("\t a\t", " \t"), "a");
    EXPECT_EQ(Trimmed("  "), "");
}

} // namespace
} // namespace velmo
