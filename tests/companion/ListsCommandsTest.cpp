#include "companion/Commands.h"

#include "catalogue/ProgramTable.h"
#include "tests/support/TemporaryDesktop.h"
#include "tests/trust/ListSigner.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
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

TEST_F(ListsCommandsTest, WhatAFullDiskCutsIsToldSoThatNobodySignsIt)
{
    struct FullDisk final : std::stringbuf
    {
        int sync() override { return -1; }
    };
    FullDisk full;
    std::ostream output(&full);
    std::ostringstream errors;
    EXPECT_EQ(RunLists({"make", Native("site"), "--serial", "1"}, output, errors),
              ExitCode::Failed);
    EXPECT_THAT(errors.str(), testing::StartsWith("The output: "));
}

TEST_F(ListsCommandsTest, TheTextGoesIntoAFileWhereOneIsNamed)
{
    const std::string file = m_desktop.Folder() + "lists.txt";
    EXPECT_EQ(Do({"make", Native("site"), "--serial", "7", "--output", file}), 0) << m_errors;
    EXPECT_EQ(m_output, "");
    EXPECT_THAT(m_desktop.Read("lists.txt"), HasSubstr("\nSerial=7\n"));
}

/// A vendor's folder without a fault in it.
class LintTest : public ListsCommandsTest
{
  protected:
    LintTest()
    {
        for (const ProgramEntry& program : kPrograms)
        {
            std::string name(program.demoSetup.substr(1));
            std::ranges::replace(name, '/', '\\');
            Write(name, "demo");
        }
        Write("pub\\mervala\\mdb\\merlin.exe", "merlin");
        Write("pub\\mervala\\pic\\birds.exe", "birds");
    }

    /// The faults of a list after the other's, without the file's path: "3: text".
    std::vector<std::string> Faults(const std::string& versions, const std::string& equipment)
    {
        Write("pub\\demo\\version.ini", versions);
        Write("pub\\demo\\manufver.ini", equipment);
        const int exitCode = Do({"lint", Native("site")});
        std::vector<std::string> faults;
        std::istringstream lines(m_output);
        for (std::string line; std::getline(lines, line);)
        {
            faults.push_back(line.substr(line.find(".ini:") + 5));
        }
        EXPECT_EQ(exitCode, faults.empty() ? 0 : 4) << m_errors;
        return faults;
    }
};

const std::string kGoodVersions = "; of today\n[Loadcalc 8]\nMajor=8\nMinor=3\nRevision=-1\n"
                                  "[News Headlines]\nA [new] one|http://news.example/\n";
const std::string kGoodEquipment = "[Merlin]\n1MDBFilename=merlin.mdb\n1ReleaseDate=3/15/2004\n"
                                   "MDBSetupFileSize=6\n";

TEST_F(LintTest, EachFaultOfTheVersionListIsToldWithItsLine)
{
    const std::string headline = "More|/more.htm\n";
    std::string headlines;
    for (int i = 0; i < 20; ++i)
    {
        headlines += headline;
    }
    const std::tuple<std::string, std::vector<std::string>> rows[] = {
        {kGoodVersions, {}},
        {kGoodVersions + "No link\n", {"8: The headline has no link: it cannot be clicked"}},
        {kGoodVersions + "No link|file:///x\n",
         {"8: The headline has no link: it cannot be clicked"}},
        {kGoodVersions + headlines, {"27: Only the 20 headlines before this one are shown"}},
        {"[Loadcalk 8]\n", {"1: [Loadcalk 8] is no product's name"}},
        {kGoodVersions + "[LOADCALC 8]\n",
         {"8: [LOADCALC 8] stands in line 2 already: this one does not count"}},
        {"[Airflow 3]\nMajor=3\nminor=1\nMinor=2\n",
         {"4: Minor stands in line 3 already: this one does not count"}},
        {"[Airflow 3]\nMajor=three\nMinor=9999999999\nRevision=1.5\n",
         {"2: Major is no whole number: three", "3: Minor is no whole number: 9999999999",
          "4: Revision is no whole number: 1.5"}},
        {"[Airflow 3]\nDemo URL=C:\\x.exe\n", {"2: Demo URL is no web address: C:\\x.exe"}},
        {"Major=3\n[Airflow 3]\nMajor\n",
         {"1: The line stands in no section", "3: The line is neither a section nor a value"}},
        {"[Airflow 3]\n;" + std::string(1024, 'x'),
         {"2: The line has more than 1,024 characters: it is left out"}},
    };
    for (const auto& [versions, faults] : rows)
    {
        SCOPED_TRACE(versions);
        EXPECT_EQ(Faults(versions, kGoodEquipment), faults);
    }
}

TEST_F(LintTest, EachFaultOfTheManufacturerListIsToldWithItsLine)
{
    const std::tuple<std::string, std::vector<std::string>> rows[] = {
        {kGoodEquipment + "2MDBFilename=b.mdb\n4MDBFilename=d.mdb\n5MDBFilename=e.mdb\n",
         {"6: There is no 3MDBFilename: clients look at none from there on"}},
        {kGoodEquipment + "2MDBFilename=\n3MDBFilename=c.mdb\n",
         {"6: There is no 2MDBFilename: clients look at none from there on"}},
        {kGoodEquipment + "2MDBFilename=..\\b.mdb\n2ReleaseDate=soon\n",
         {"5: 2MDBFilename is a file name that clients refuse: ..\\b.mdb",
          "6: 2ReleaseDate is no date: soon"}},
        {kGoodEquipment + "1MDBFILENAME=x.mdb\n",
         {"5: 1MDBFILENAME stands in line 2 already: this one does not count"}},
        {"[Merlin]\n1MDBFilename=m.mdb\nMDBSetupFileSize=7\n",
         {"3: MDBSetupFileSize is not the size of /pub/mervala/mdb/merlin.exe, 6 bytes"}},
        {"[Merlin]\n1MDBFilename=m.mdb\nMDBSetupFileSize=5\n",
         {"3: MDBSetupFileSize is not the size of /pub/mervala/mdb/merlin.exe, 6 bytes"}},
        {"[Osprey]\n1MDBFilename=o.mdb\n",
         {"1: The setup /pub/mervala/mdb/osprey.exe is not there"}},
        {"[Con]\n1MDBFilename=o.mdb\n",
         {"1: The section's setup has a file name that clients refuse: con.exe",
          "1: The setup /pub/mervala/mdb/con.exe is not there"}},
        {"[Manufver General]\nServer Address HTTP=server\n",
         {"2: Server Address HTTP is no web address: server"}},
        {kGoodEquipment + "PictureSetupFilename=Birds.exe\nPictureSetupFileSize=5\n"
                          "DatePicturesModified=1/2\nDateCheckerPictureFile=a/b.gif\n",
         {"7: DatePicturesModified is no date: 1/2",
          "8: DateCheckerPictureFile is a file name that clients refuse: a/b.gif"}},
        {kGoodEquipment + "PictureSetupFilename=fish.exe\nPictureSetupFileSize=five\n",
         {"1: The setup /pub/mervala/pic/fish.exe is not there",
          "6: PictureSetupFileSize is no whole number: five"}},
    };
    for (const auto& [equipment, faults] : rows)
    {
        SCOPED_TRACE(equipment);
        EXPECT_EQ(Faults(kGoodVersions, equipment), faults);
    }
}

TEST_F(LintTest, SetupsOfProgramsHaveToBeThereUnlessTheListNamesAnotherPlace)
{
    Remove("pub\\demo\\aflow30.exe");
    Remove("pub\\demo\\panel50.exe"); // of a program that is never shown
    Remove("pub\\chlsz40.exe");       // on a server of its own
    const std::string missing = "The setup /pub/demo/aflow30.exe is not there";
    EXPECT_EQ(Faults(kGoodVersions, kGoodEquipment), std::vector{"1: " + missing});
    EXPECT_EQ(Faults(kGoodVersions + "[Airflow 3]\n", kGoodEquipment),
              std::vector{"8: " + missing});
    EXPECT_EQ(
        Faults(kGoodVersions + "[Airflow 3]\nDemo URL=http://a.example/x.exe\n", kGoodEquipment),
        std::vector<std::string>());
    EXPECT_EQ(Do({"lint", Native("site"), "--json"}), 0);
    EXPECT_EQ(m_output, "{\n  \"faults\": []\n}\n");
    Remove("pub\\demo\\lc8setup.exe");
    EXPECT_EQ(Do({"lint", Native("site"), "--json"}), 4);
    EXPECT_THAT(m_output,
                HasSubstr("\"line\": 2,\n      \"text\": \"The setup /pub/demo/lc8setup.exe "
                          "is not there\""));
    Remove("pub\\demo\\version.ini");
    EXPECT_EQ(Do({"lint", Native("site")}), 1);
    EXPECT_THAT(m_errors, HasSubstr("version.ini: "));
}

} // namespace
} // namespace velmo::companion
