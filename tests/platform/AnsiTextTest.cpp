#include "platform/AnsiText.h"

#include <gtest/gtest.h>

namespace velmo::platform
{
namespace
{

using std::string_literals::operator""s;
using std::string_view_literals::operator""sv;

constexpr const char* kNone = "\xEF\xBF\xBD";

TEST(AnsiTextTest, EveryByteButFiveHasACharacterAndComesBack)
{
    std::string without;
    for (int number = 0; number < 256; ++number)
    {
        const std::string byte(1, static_cast<char>(number));
        const std::string text = FromAnsi(byte);
        without += text == kNone ? byte : "";
        EXPECT_EQ(ToAnsi(text), text == kNone ? "?" : byte) << number;
    }
    EXPECT_EQ(without, "\x81\x8D\x8F\x90\x9D");
    EXPECT_EQ(FromAnsi("\x80\x8E\x9F\xA0\xE4"), "\xE2\x82\xAC\xC5\xBD\xC5\xB8\xC2\xA0\xC3\xA4");
    EXPECT_EQ(ToAnsi("a\xE6\x97\xA5\xF0\x9F\x94\xA7z\xC4\x80"), "a??z?");
    for (const char* broken : {"\xC3xyz", "\xE4xyz", "\xFFxyz", "\x80xyz"})
    {
        EXPECT_EQ(ToAnsi(broken), "?xyz");
    }
}

TEST(AnsiTextTest, Utf16IsReadWithItsPairsAndItsFaults)
{
    EXPECT_EQ(FromUtf16("a\0\xE5\x65\x3D\xD8\x27\xDD"sv), "a\xE6\x97\xA5\xF0\x9F\x94\xA7");
    EXPECT_EQ(FromUtf16("\x3D\xD8z\0"sv), kNone + "z"s);
    EXPECT_EQ(FromUtf16("\x27\xDDz\0"sv), kNone + "z"s);
    EXPECT_EQ(FromUtf16("z\0\x3D\xD8"sv), "z"s + kNone);
    EXPECT_EQ(FromUtf16("z\0q"sv), "z"s + kNone);
}

TEST(AnsiTextTest, AFilesMarkTellsItsEncoding)
{
    EXPECT_EQ(FromFileBytes("\xFF\xFE\xE4\0"sv), "\xC3\xA4");
    EXPECT_EQ(FromFileBytes("\xEF\xBB\xBF\xC3\xA4"), "\xC3\xA4");
    EXPECT_EQ(FromFileBytes("\xEF\xBB\xBF\xE4z\xED\xA0\x80"), kNone + "z"s + kNone);
    EXPECT_EQ(FromFileBytes("\xEF\xBB\xBF\xF0\x9F\x94z"), kNone + "z"s);
    EXPECT_EQ(FromFileBytes("\xE4"), "\xC3\xA4");
    EXPECT_EQ(FromFileBytes(""), "");
}

} // namespace
} // namespace velmo::platform
