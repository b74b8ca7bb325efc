#include "companion/Commands.h"

#include "tests/support/TemporaryDesktop.h"
#include "tests/trust/ListSigner.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <functional>
#include <sstream>
#include <tuple>

namespace velmo::companion
{
namespace
{

using testing::HasSubstr;

/// A vendor's folder: two lists and two setups.
class ListsCommandsTest : public testing::Test
{
  protected:
    ListsCommandsTest()
    {
        Write("pub\\demo\\version.ini", "[Loadcalc 8]\r\nMajor=8\r\n");
        Write("pub\\demo\\manufver.ini", "[Kestrel]\r\n1MDBFilename=kestrel.mdb\r\n");
        Write("pub\\demo\\lc8setup.exe", "program");
        Write("pub\\mervala\\mdb\\kestrel.EXE", "setup");
        Write("pub\\readme.txt", "no setup");
    }

    void Write(const std::string& name, std::string_view bytes) const
    {
        m_desktop.Write("site\\" + name, bytes);
    }

    void Remove(const std::string& name) const
    {
        std::filesystem::remove(m_desktop.Native("site\\" + name));
    }

    [[nodiscard]] std::string Native(const std::string& name) const
    {
        const std::u8string path = m_desktop.Native(name).u8string();
        return {path.begin(), path.end()};
    }

    int Do(const std::vector<std::string>& arguments)
    {
        std::ostringstream output;
        std::ostringstream errors;
        const ExitCode code = RunLists(arguments, output, errors);
        m_output = output.str();
        m_errors = errors.str();
        return static_cast<int>(code);
    }

    const test::TemporaryDesktop m_desktop;
    const test::ListSigner m_signer{1};
    std::string m_output;
    std::string m_errors;
};

TEST_F(ListsCommandsTest, WhatIsMadeAndSignedIsVerifiedUntilAnythingChanges)
{
    ASSERT_EQ(Do({"make", Native("site"), "--serial", "7", "--days", "30"}), 0) << m_errors;
    EXPECT_THAT(m_output,
                testing::ContainsRegex("^\\[Velmo Lists\\]\nFormat=1\nSerial=7\nPublished=.*"
                                       "Z\nExpires=.*Z\n\\[Files\\]\n"));
    EXPECT_THAT(m_output, HasSubstr("\n/pub/mervala/mdb/kestrel.EXE=5 sha256:"));
    EXPECT_EQ(std::count(m_output.begin(), m_output.end(), '\n'), 6 + 4);
    const std::string file = m_desktop.Write("lists.signed", m_signer.Sign(m_output));
    const std::string key =
        m_desktop.Write("velmo.pub", "untrusted comment: key\n" + m_signer.KeyText() + "\n");

    const std::tuple<std::function<void()>, int, const char*> rows[] = {
        {[] {}, 0, "\nSerial 7, 4 files, until "},
        {[&] { Write("pub\\demo\\lc8setup.exe", "PROGRAM"); }, 4,
         "\n/pub/demo/lc8setup.exe: its content differs from the signed one\n"},
        {[&] { Write("pub\\demo\\lc8setup.exe", "program!"); }, 4,
         "\n/pub/demo/lc8setup.exe: its size differs from the signed one\n"},
        {[&] { Remove("pub\\demo\\lc8setup.exe"); }, 4,
         "\n/pub/demo/lc8setup.exe: it is signed, but not there\n"},
        {[&] { Write("pub\\new.exe", "x"); }, 4,
         "\n/pub/new.exe: it is not among the signed files\n"},
        {[&] { Remove("pub\\demo\\version.ini"); }, 4, "\n/pub/demo/version.ini: "},
    };
    for (const auto& [change, exitCode, line] : rows)
    {
        SCOPED_TRACE(line);
        change();
        EXPECT_EQ(Do({"verify", "--key", key, file, "--site", Native("site")}), exitCode)
            << m_errors;
        EXPECT_THAT(m_output, testing::StartsWith("Signed by the vendor, "));
        EXPECT_THAT(m_output, HasSubstr(line));
    }
    EXPECT_EQ(Do({"verify", file, "--key", m_signer.KeyText()}), 0);

    EXPECT_EQ(Do({"verify", file, "--key", test::ListSigner(2).KeyText()}), 4);
    EXPECT_THAT(m_output, HasSubstr("unknown key"));
    EXPECT_EQ(Do({"verify", file, "--key", key, "--json"}), 0);
    EXPECT_THAT(m_output, HasSubstr("\"serial\": 7,"));
    EXPECT_THAT(m_output, HasSubstr("\"faults\": []"));
}

TEST_F(ListsCommandsTest, WhatCannotBeDoneIsToldWithItsExitCode)
{
    const std::string file = m_desktop.Write("lists.signed", "[Velmo Lists]\n");
    const std::tuple<std::vector<std::string>, int, const char*> rows[] = {
        {{"make", Native("nowhere"), "--serial", "1"}, 1, "cannot be read"},
        {{"make", Native("site"), "--serial", "0"}, 4, "makes no sense"},
        {{"make", Native("site")}, 2, "--serial is required"},
        {{"make", Native("site"), "--serial", "1", "--days", "0"}, 2, "--days"},
        {{"verify", m_desktop.Folder() + "none", "--key", m_signer.KeyText()}, 1, "none"},
        {{"verify", file, "--key", "no key"}, 1, "This is no public key: no"},
        {{"verify", file}, 2, "--key is required"},
        {{}, 2, "subcommand is required"},
    };
    for (const auto& [arguments, exitCode, error] : rows)
    {
        SCOPED_TRACE(testing::PrintToString(arguments));
        EXPECT_EQ(Do(arguments), exitCode);
        EXPECT_THAT(m_errors, HasSubstr(error));
        EXPECT_EQ(m_output, "");
    }
    EXPECT_EQ(Do({"verify", file, "--key", m_signer.KeyText()}), 4);
    EXPECT_THAT(m_output, testing::StartsWith("The signature of the vendor's lists is not valid."));

    Remove("pub\\demo\\manufver.ini");
    EXPECT_EQ(Do({"make", Native("site"), "--serial", "1"}), 1);
    EXPECT_THAT(m_errors, HasSubstr("manufver.ini: "));
}

TEST_F(ListsCommandsTest, TheTextGoesIntoAFileWhereOneIsNamed)
{
    const std::string file = m_desktop.Folder() + "lists.txt";
    EXPECT_EQ(Do({"make", Native("site"), "--serial", "7", "--output", file}), 0) << m_errors;
    EXPECT_EQ(m_output, "");
    EXPECT_THAT(m_desktop.Read("lists.txt"), HasSubstr("\nSerial=7\n"));
}

} // namespace
} // namespace velmo::companion
