#include "trust/SignedLists.h"

#include "tests/support/TemporaryDesktop.h"
#include "tests/trust/ListSigner.h"
#include "trust/ListSignature.h"
#include "trust/UtcTime.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <tuple>

namespace velmo
{
namespace
{

using testing::HasSubstr;

constexpr const char* kHashOfAbc =
    "ba7816bf8f01cfea414140de5dae2223b00361a396177a9cb410ff61f20015ad";

std::string Text(const std::string& head, const std::string& files)
{
    return "[Velmo Lists]\n" + head + "[Files]\n" + files;
}

const std::string kHead = "Format=1\nSerial=2026112301\nPublished=2026-11-23T07:59:13Z\n"
                          "Expires=2027-02-21T07:59:13Z\n";
const std::string kAbc = std::string("=3 sha256:") + kHashOfAbc + "\n";
const std::string kFile = "/pub/demo/version.ini" + kAbc;

/// Why a text is refused; empty when it is not.
std::string Fault(std::string_view text)
{
    const auto lists = ParseSignedLists(text);
    return lists ? "" : lists.Failure().description;
}

TEST(SignedListsTest, WhatIsReadIsWrittenAgain)
{
    const std::string text = Text(kHead, "/a=b c.exe" + kAbc + kFile);
    const auto lists = ParseSignedLists(text);
    ASSERT_TRUE(lists.Ok()) << lists.Failure().description;
    EXPECT_EQ(lists.Value().serial, 2026112301U);
    EXPECT_EQ(UtcTimeText(lists.Value().published), "2026-11-23T07:59:13Z");
    EXPECT_EQ(UtcTimeText(lists.Value().expires), "2027-02-21T07:59:13Z");
    EXPECT_EQ(SignedListsText(lists.Value()), text);

    std::string windowsText;
    for (const char c : text)
    {
        windowsText += c == '\n' ? "\r\n" : std::string(1, c);
    }
    const auto same = ParseSignedLists(windowsText);
    ASSERT_TRUE(same.Ok()) << same.Failure().description;
    EXPECT_EQ(SignedListsText(same.Value()), text);
}

TEST(SignedListsTest, TextsOfAnotherFormAreRefused)
{
    const auto without = [](std::string text, const std::string& part) {
        return text.replace(text.find(part), part.size(), "");
    };
    const auto with = [](std::string text, const std::string& part, const std::string& other) {
        return text.replace(text.find(part), part.size(), other);
    };
    const std::string serial = "Serial=2026112301\n";
    const std::string expires = "2027-02-21T07:59:13Z";
    const std::string hash = kHashOfAbc;
    const std::tuple<std::string, const char*> rows[] = {
        {Text(kHead + "Later=x\n\n", kFile), ""},
        {"", "The format is not 1."},
        {"\n" + kHead, "Line 2 of the text: Nothing may stand before"},
        {"[Velmo Lists]\n" + kHead, "There are no files."},
        {"[Files]\n" + kFile, "Line 1 of the text: This section does not belong here."},
        {Text(kHead, kFile + "[Files]\n"), "Line 8 of the text: This section"},
        {Text(kHead, kFile + "[More]\n"), "This section does not belong here."},
        {Text(with(kHead, "=1\n", "=2\n"), kFile), "The format is not 1."},
        {Text(without(kHead, "Format=1\n"), kFile), "The format is not 1."},
        {Text(kHead + serial, kFile), "Line 6 of the text: This key comes twice."},
        {Text(kHead + "Serial\n", kFile), "This is no key with its value."},
        {Text(without(kHead, serial), kFile), "Serial, Published or Expires"},
        {Text(with(kHead, serial, "Serial=0\n"), kFile), "Serial, Published or Expires"},
        {Text(with(kHead, serial, "Serial=-1\n"), kFile), "Serial, Published or Expires"},
        {Text(with(kHead, serial, "Serial=1 \n"), kFile), "Serial, Published or Expires"},
        {Text(with(kHead, serial, "Serial=123456789012345678\n"), kFile), ""},
        {Text(with(kHead, serial, "Serial=1234567890123456789\n"), kFile), "Serial, Published"},
        {Text(with(kHead, expires, "2026-11-23T07:59:13Z"), kFile), "Serial, Published or Expires"},
        {Text(with(kHead, expires, "tomorrow"), kFile), "Serial, Published or Expires"},
        {Text(kHead, kFile + kFile), "Line 8 of the text: This path comes twice."},
        {Text(kHead, kFile + "/pub/demo/VERSION.ini" + kAbc), "This path comes twice."},
        {Text(kHead, with(kFile, "=3", "=")), "Line 7 of the text: This is no path with size"},
        {Text(kHead, with(kFile, "=3", "=-3")), "This is no path with size and hash."},
        {Text(kHead, with(kFile, "=3", "=0x3")), "This is no path with size and hash."},
        {Text(kHead, with(kFile, "sha256", "sha1")), "This is no path with size and hash."},
        {Text(kHead, with(kFile, "=3 sha256:", " sha256:=3")), "This is no path with size"},
        {Text(kHead, with(kFile, hash, hash.substr(1))), "This is no path with size and hash."},
        {Text(kHead, with(kFile, hash, hash + "0")), "This is no path with size and hash."},
        {Text(kHead, with(kFile, "ba78", "ba7g")), "This is no path with size and hash."},
        {Text(kHead, "pub/version.ini" + kAbc), "This is no path with size and hash."},
        {Text(kHead, "/pub/../version.ini" + kAbc), "This is no path with size and hash."},
        {Text(kHead, "/pub//version.ini" + kAbc), "This is no path with size and hash."},
        {Text(kHead, "/pub/" + kAbc), "This is no path with size and hash."},
        {Text(kHead, "/pub\\a" + kAbc), "This is no path with size and hash."},
        {Text(kHead, "/\xFF" + kAbc), "This is no path with size and hash."},
        {Text(kHead, "/" + std::string(200, 'a') + "/" + std::string(200, 'b') + kAbc), ""},
    };
    for (const auto& [text, fault] : rows)
    {
        SCOPED_TRACE(text);
        EXPECT_THAT(Fault(text), HasSubstr(fault));
        EXPECT_EQ(Fault(text).empty(), *fault == '\0');
    }
}

TEST(SignedListsTest, PathsAndFilesHaveBounds)
{
    std::string path;
    while (path.size() < 1024)
    {
        path += "/" + std::string(127, 'a');
    }
    EXPECT_TRUE(IsServerPath(path));
    path.back() = '/';
    EXPECT_FALSE(IsServerPath(path + "a"));

    std::string files;
    for (std::size_t i = 0; i < kMostSignedFiles; ++i)
    {
        files += "/" + std::to_string(i) + kAbc;
    }
    EXPECT_EQ(Fault(Text(kHead, files)), "");
    EXPECT_THAT(Fault(Text(kHead, files + kFile)), HasSubstr("These are too many files."));
}

TEST(SignedListsTest, AFilesFaultIsToldBehindItsName)
{
    const auto lists = ParseSignedLists(Text(kHead, "/B" + kAbc + "/a" + kAbc + "/c" + kAbc));
    ASSERT_TRUE(lists.Ok());
    const std::tuple<const char*, const char*, const char*> rows[] = {
        {"/a", "abc", ""},
        {"/B", "abc", ""},
        {"/b", "abc", ": it is not among the signed files"},
        {"/d", "abc", ": it is not among the signed files"},
        {"/c", "abcd", ": its size differs from the signed one"},
        {"/c", "abd", ": its content differs from the signed one"},
    };
    for (const auto& [path, bytes, fault] : rows)
    {
        EXPECT_EQ(lists.Value().FaultOf(path, DigestOf(bytes)), fault) << path << " " << bytes;
    }
}

TEST(SignedListsTest, AnOpenFileHasTheDigestOfItsBytes)
{
    const test::TemporaryDesktop desktop;
    for (const std::size_t size : {0U, 3U, 1U << 16, (1U << 17) + 1})
    {
        const std::string bytes(size, 'x');
        const auto file = platform::OpenFile::Open(desktop.Write("setup.exe", bytes),
                                                   platform::OpenFile::For::Reading);
        ASSERT_TRUE(file.Ok());
        const auto digest = DigestOf(file.Value());
        ASSERT_TRUE(digest.Ok());
        EXPECT_EQ(digest.Value(), DigestOf(bytes)) << size;
    }
}

TEST(SignedListsTest, TimesHaveOneForm)
{
    for (const char* time :
         {"1970-01-01T00:00:00Z", "2028-02-29T23:59:59Z", "9999-12-31T00:00:00Z"})
    {
        const auto read = ParseUtcTime(time);
        ASSERT_TRUE(read) << time;
        EXPECT_EQ(UtcTimeText(*read), time);
    }
    EXPECT_EQ(ParseUtcTime("1970-01-02T01:01:01Z")->time_since_epoch().count(), 86'400 + 3'661);
    for (const char* time : {"2026-02-29T00:00:00Z", "2026-13-01T00:00:00Z", "2026-00-01T00:00:00Z",
                             "2026-01-01T24:00:00Z", "2026-01-01T00:60:00Z", "2026-01-01T00:00:60Z",
                             "2026-01-01 00:00:00Z", "2026-01-01T00:00:00", "2026-01-01T00:00:00+1",
                             "2026-1-001T00:00:00Z", ""})
    {
        EXPECT_FALSE(ParseUtcTime(time)) << time;
    }
}

TEST(ListKeyTest, UpToFourKeysAreReadOrNone)
{
    const auto text = [](unsigned char seed) { return test::ListSigner(seed).KeyText(); };
    const auto keys = ParseListKeys(text(1) + ", " + text(2) + "\r\n" + text(3) + " " + text(4));
    ASSERT_TRUE(keys.Ok());
    ASSERT_EQ(keys.Value().size(), 4U);
    EXPECT_EQ(keys.Value()[3].number, test::ListSigner(4).Key().number);
    EXPECT_EQ(keys.Value()[3].key, test::ListSigner(4).Key().key);
    EXPECT_TRUE(ParseListKeys(" ").Value().empty());

    std::string legacy = text(1);
    legacy[1] = 'U'; // "ED", which signatures begin with
    const std::string five =
        text(1) + " " + text(2) + " " + text(3) + " " + text(4) + " " + text(5);
    for (const std::string& bad : {five, text(1) + "," + text(1), text(1) + "x", text(1).substr(4),
                                   legacy, std::string("key")})
    {
        EXPECT_FALSE(ParseListKeys(bad).Ok()) << bad;
    }
}

// Made with minisign 0.11, the second with its switch for the older form.
constexpr const char* kMinisignKey = "RWQY0eOkMlUL1opWk62p8yrKEmPKhlzLngPtt51AWtKbECAAr4KF3ooW";
constexpr const char* kMinisigned =
    "untrusted comment: signature from minisign secret key\n"
    "RUQY0eOkMlUL1ghbWYrVttPAgYO6yZvzkoEM350ym6gBoduGJGyxALY/"
    "eJ2Q2wP1Gl9CQ/43ORF7h/A9esy6aGh0hDWOOqjKkwk=\n"
    "trusted comment: Velmo lists 2026112301\n"
    "s514divo1Pbi+YhX9SwNPCCLqw9/9X24g7HaiSMOILiNCi+ApXfvONnTbENIb/H5c28P+xX3TSxLdyQ7j3B5BQ==\n";
constexpr const char* kMinisignedOldForm =
    "untrusted comment: signature from minisign secret key\n"
    "RWQY0eOkMlUL1lKnE3T34mixnok4TCkgiRdvHvI1ZP/"
    "m3WFkIR/mT34WPjkW31oSpRLgVfkPHjcp6dPNvjAei50KbbBgSPyoFAk=\n"
    "trusted comment: Velmo lists 2026112301\n"
    "JOfedV9BJMIEwsEZlu+2KRTK8sH6dpKpuEx3yyZJvn02ymldntpkTcsV3j/y82MNDJR3mnm6Gpk5y5lQbwUkDA==\n";

TEST(ListSignatureTest, MinisignsOwnSignatureIsGood)
{
    const std::string text = Text(kHead, kFile);
    const ListKey key = ParseListKeys(kMinisignKey).Value().at(0);
    const std::string file = kMinisigned + text;
    const auto signature = ParseListSignature(file);
    ASSERT_TRUE(signature.Ok()) << signature.Failure().description;
    EXPECT_EQ(signature.Value().text, text);
    EXPECT_EQ(signature.Value().comment, "Velmo lists 2026112301");
    EXPECT_TRUE(IsSignedBy(signature.Value(), key));

    ListKey sameNumber = test::ListSigner(1).Key();
    sameNumber.number = key.number;
    EXPECT_FALSE(IsSignedBy(signature.Value(), sameNumber));
    EXPECT_FALSE(ParseListSignature(kMinisignedOldForm + text).Ok());
}

TEST(ListSignatureTest, NoByteBehindTheUntrustedCommentMayChangeOrGo)
{
    const std::string file = kMinisigned + Text(kHead, kFile);
    const ListKey key = ParseListKeys(kMinisignKey).Value().at(0);
    const auto isGood = [&](std::string_view bytes) {
        const auto signature = ParseListSignature(bytes);
        return signature.Ok() && IsSignedBy(signature.Value(), key);
    };
    ASSERT_TRUE(isGood(file));
    for (std::size_t at = file.find('\n'); at < file.size(); ++at)
    {
        std::string changed = file;
        changed[at] = static_cast<char>(changed[at] ^ 1);
        EXPECT_FALSE(isGood(changed)) << at;
        EXPECT_FALSE(isGood(std::string_view(file).substr(0, at))) << at;
    }
    EXPECT_FALSE(isGood(file + "\n"));
}

TEST(ListSignatureTest, AFileOfMoreThanAMebibyteIsNotLookedAt)
{
    const test::ListSigner signer(1);
    std::string file = signer.Sign(std::string(kMostSignedBytes, ' '));
    file.resize(kMostSignedBytes);
    EXPECT_TRUE(ParseListSignature(file).Ok());
    EXPECT_FALSE(ParseListSignature(file + " ").Ok());
}

} // namespace
} // namespace velmo
