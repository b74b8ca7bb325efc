#include "updates/ProgramStatusList.h"

#include "catalogue/ProgramCatalogue.h"
#include "catalogue/ProgramTable.h"
#include "catalogue/VendorServer.h"
#include "sample/PeImageWriter.h"
#include "tests/support/ProgramDesktop.h"
#include "updates/AddressOpener.h"
#include "updates/ProgramActions.h"
#include "updates/ProgramRow.h"
#include "updates/StartupOptions.h"
#include "updates/VersionList.h"

#include <gmock/gmock.h>

#include <tuple>

namespace velmo
{
namespace
{

using std::string_literals::operator""s;
using testing::ElementsAre;

class ProgramStatusListTest : public test::ProgramDesktop
{
  protected:
    /// Installs Loadcalc 8 and fills the list from a version list.
    void Show(const std::string& installed, const std::string& versionList)
    {
        m_desktop.SetWinIniFolder("LoadcalcDirectory", installed.empty() ? "" : m_desktop.Folder());
        sample::VersionResource version;
        version.strings = {
            {u"040904B0", {{u"FileVersion", std::u16string(installed.begin(), installed.end())}}}};
        m_desktop.Write("Loadcalc8.exe", sample::WritePeImage({true, {version}}));
        m_programs.Rebuild(VersionList(versionList), SharedValues::Read());
    }

    /// The cells that the list view shows of the program.
    std::vector<std::string> Shown(std::string_view program)
    {
        std::vector<std::string> cells;
        m_programs.List().Select(program);
        for (std::size_t column = 1; column <= 5; ++column)
        {
            cells.push_back(
                m_programs.List().Text(m_programs.List().SelectedPosition().value(), column));
        }
        return cells;
    }

    bool IsBold(std::string_view program)
    {
        m_programs.List().Select(program);
        return m_programs.List().Bold(m_programs.List().SelectedPosition().value());
    }

    ProgramStatusList m_programs{m_locator, m_settings};
};

TEST_F(ProgramStatusListTest, TheStatusFollowsFromInstalledAndLatestVersion)
{
    const struct
    {
        const char* program;
        const char* installed;             ///< Of Loadcalc 8; empty: not installed.
        std::array<const char*, 3> listed; ///< Major, minor, revision as far as they are there.
        std::array<const char*, 3> cells;  ///< Installed, latest, status.
    } rows[] = {
        {"Loadcalc 8", "8.02.0015", {"8", "2", "15"}, {"8.02.15", "8.02.15", "No"}},
        {"Loadcalc 8", "8.02.0014", {"8", "2", "15"}, {"8.02.14", "8.02.15", "Yes"}},
        {"Loadcalc 8", "9.00.0000", {"8", "5", "1"}, {"9.00.0", "8.05.1", "Yes"}},
        {"Loadcalc 8", "8.02.0015", {"8", "2"}, {"8.02.15", "8.02.0", "No"}},
        {"Loadcalc 8", "8.02.0015", {"8", "2", "-1"}, {"8.02.15", "8.02", "No"}},
        {"Loadcalc 8", "8.02.0015", {"8", "99999999999", "7"}, {"8.02.15", "8.00.7", "No"}},
        {"Loadcalc 8", "8.02.0015", {"0", "2", "1"}, {"8.02.15", "?", "?"}},
        {"Loadcalc 8", "8.02.0015", {"99999999999", "2"}, {"8.02.15", "?", "?"}},
        {"Loadcalc 8", "8.02.0015", {}, {"8.02.15", "?", "?"}},
        {"Loadcalc 8", "", {"8", "2", "15"}, {"Not Installed", "8.02.15", "No (Try Demo)"}},
        {"Loadcalc 8", "beta", {"8"}, {"Not Installed", "8.00.0", "No (Try Demo)"}},
        {"Pipesize 3", "8.02.0015", {"3", "0", "1"}, {"?", "3.00.1", "? (Try Demo)"}},
        {"Pipesize 3", "8.02.0015", {}, {"?", "?", "?"}},
    };
    for (const auto& row : rows)
    {
        std::string list = "[" + std::string(row.program) + "]\r\n";
        for (std::size_t i = 0; i < 3 && row.listed[i] != nullptr; ++i)
        {
            list += std::array{"Major=", "Minor=", "Revision="}[i] + std::string(row.listed[i]) +
                    "\r\n";
        }
        SCOPED_TRACE(row.installed + list);
        Show(row.installed, list);
        EXPECT_THAT(Shown(row.program),
                    ElementsAre(row.program, "-", row.cells[0], row.cells[1], row.cells[2]));
        const bool needsUpdate = std::string_view(row.cells[2]) == "Yes";
        EXPECT_EQ(IsBold(row.program), needsUpdate);
        EXPECT_EQ(m_programs.CountThatNeedUpdate(), needsUpdate ? 1 : 0);
    }
}

TEST_F(ProgramStatusListTest, AListThatIsNoneKnowsNoVersion)
{
    EXPECT_TRUE(VersionList("[Loadcalc 8]\r\nMajor=0\r\n").IsList());
    std::string rubbish = "[Loadcalc 8\0]\xFF\xFE[]=\r\n=\x1A\n"s;
    for (int i = 0; i < 100'000; ++i)
    {
        rubbish += static_cast<char>(i * 7919 % 251);
    }
    for (const std::string& text : {"<html><body>Major=9 [Loadcalc 8]</body></html>"s, rubbish,
                                    "[Loadcalc 8]\r\nMinor=8\r\n[Loadcalc]\r\nMajor=8\r\n"s, ""s})
    {
        EXPECT_FALSE(VersionList(text).IsList());
        Show("8.02.0014", text);
        ASSERT_EQ(m_programs.Rows().size(), kPrograms.size() - 1)
            << "the catalogue in its order but for one";
        EXPECT_EQ(m_programs.Rows()[14].Name() + m_programs.Rows()[15].Name(),
                  "Panelplan 6Parkvent 2");
        EXPECT_EQ(m_programs.Find("Panelplan 5"), nullptr);
        EXPECT_THAT(Shown("Loadcalc 8"), ElementsAre("Loadcalc 8", "-", "8.02.14", "?", "?"));
        EXPECT_EQ(m_programs.CountThatNeedUpdate(), 0);
    }
}

TEST_F(ProgramStatusListTest, WhatNoListOfTheVendorsHasIsLeftOutAndSaid)
{
    const auto said = [](const std::string& list) {
        const VersionList parsed(list);
        ProgramRow row{.index = IndexOfName("Loadcalc 8")};
        parsed.Read(row);
        std::string text = LatestVersionText(row.latest);
        for (const std::string& complaint : parsed.Complaints())
        {
            text += "; " + complaint;
        }
        return text;
    };
    const std::string loadcalc = "[Loadcalc 8]\nMajor=8\n";
    const auto line = [](std::size_t length) { return "x=" + std::string(length - 2, 'y') + "\n"; };
    EXPECT_EQ(said(line(1024) + loadcalc), "8.00.0");
    EXPECT_EQ(said(line(1025) + loadcalc),
              "8.00.0; A line of more than 1,024 characters is left out");
    EXPECT_EQ(said(loadcalc + "[" + std::string(255, 'n') + "]\n"), "8.00.0");
    EXPECT_EQ(said(loadcalc + "[" + std::string(256, 'n') + "]\nMajor=9\n[Loadcalc 8]\nMinor=9\n"),
              "8.00.0; A section with a name of more than 255 characters is left out");
    std::string sections;
    for (int i = 1; i < 20'000; ++i)
    {
        sections += "[" + std::to_string(i) + "]\r\n";
    }
    EXPECT_EQ(said(sections + loadcalc + "[more]\n"),
              "8.00.0; What follows after 20,000 sections is left out");
    EXPECT_EQ(said("[more]\n" + sections + loadcalc),
              "?; What follows after 20,000 sections is left out");
    const std::string address = "Demo URL=http://" + std::string(248, 'a');
    EXPECT_EQ(said(loadcalc + address), "8.00.0");
    EXPECT_EQ(said(loadcalc + address + "b"),
              "8.00.0; The setup's address of Loadcalc 8 is cut, it "
              "has more than 255 characters");
}

TEST_F(ProgramStatusListTest, ARebuildKeepsTheSelectionInView)
{
    struct Scrolled final : ListViewModel::Observer
    {
        void OnRowsChanged() override {}
        void OnColumnsChanged() override {}
        void OnSelectionChanged() override {}
        void OnScrollTo(std::size_t row) override { rows.push_back(row); }
        std::vector<std::size_t> rows;
    } observer;
    m_programs.Rebuild({}, {});
    m_programs.List().Observe(&observer);
    m_programs.Rebuild({}, {});
    EXPECT_TRUE(observer.rows.empty());
    m_programs.List().Select("Airflow 3");
    m_programs.List().Sort(1, SortOrder::Descending);
    m_programs.Rebuild({}, {});
    EXPECT_EQ(m_programs.Selected()->Name(), "Airflow 3");
    EXPECT_THAT(observer.rows, ElementsAre(kPrograms.size() - 2));
}

TEST_F(ProgramStatusListTest, TheStartupColumnIsReadAgainOnRequest)
{
    WriteSettings("[Loadcalc 8]\r\nCanCallCheckUpOnStartup=1 'True\r\n"
                  "CanAskAboutUpdating=1 'True\r\n"
                  "[Wiring 2]\r\nCheckForUpdateOnStartupOption=1\r\n");
    m_programs.Rebuild({}, {});
    EXPECT_EQ(Shown("Loadcalc 8")[1], "Ask");
    EXPECT_EQ(Shown("Wiring 2")[1], "-");
    WriteStartupOptions(m_settings, "Loadcalc 8", false, startup_option::kDoNotCheck);
    m_programs.RefreshStartupOption("Loadcalc 8");
    EXPECT_EQ(Shown("Loadcalc 8")[1], "No");
}

TEST_F(ProgramStatusListTest, TheButtonsNameTheSelectedProgram)
{
    WriteSettings("[Loadcalc 8]\r\nCanCallCheckUpOnStartup=1 'True\r\n");
    Show("8.01.0000", "[Loadcalc 8]\r\nMajor=8\r\nMinor=2\r\n[Wiring 2]\r\nMajor=2\r\n"
                      "[Pipesize 3]\r\nMajor=3\r\n");
    const std::tuple<std::string, std::string, bool> rows[] = {
        {"Loadcalc 8", " Update for ", true},        {"Wiring 2", " Demo for ", false},
        {"Pipesize 3", " Demo for ", false},         {"Airflow 3", " Update for ", false},
        {"Update Manager 1", " Update for ", false}, {"", "", false},
    };
    for (const auto& [name, what, hasOptions] : rows)
    {
        SCOPED_TRACE(name);
        m_programs.List().Select(name);
        const ProgramButtons buttons = m_programs.Buttons();
        const std::string ofIt = name.empty() ? "" : " for " + name;
        EXPECT_EQ(buttons.download.caption, "&Download" + what + name);
        EXPECT_EQ(buttons.updatePage.caption, "&Go to Update Page" + ofIt);
        EXPECT_EQ(buttons.informationPage.caption, "Go to &Info Page" + ofIt);
        EXPECT_EQ(buttons.updateOptions.caption, name.empty()
                                                     ? buttons.updateOptions.caption
                                                     : "Set &Update Options" + ofIt + "...");
        EXPECT_EQ(buttons.updateOptions.enabled, hasOptions);
        EXPECT_EQ(buttons.download.enabled, !name.empty());
        EXPECT_EQ(buttons.updatePage.enabled, !name.empty());
        EXPECT_EQ(buttons.informationPage.enabled, !name.empty() && name != "Update Manager 1");
    }
}

TEST(ProgramVersionTest, AnotherMajorNumberOrALowerMinorOrRevisionNeedsAnUpdate)
{
    constexpr std::tuple<ProgramVersion, ProgramVersion, bool> kRows[] = {
        {{8, 2, 15}, {8, 2, 15}, true},  {{8, 2, 14}, {8, 2, 15}, false},
        {{8, 2, 16}, {8, 2, 15}, true},  {{8, 3, 0}, {8, 2, 99}, true},
        {{8, 1, 99}, {8, 2, 0}, false},  {{9, 0, 0}, {8, 5, 1}, false},
        {{7, 99, 99}, {8, 0, 0}, false}, {{8, 2, 0}, {8, 2, -1}, true},
        {{8, 10, 0}, {8, 9, 0}, true},
    };
    for (const auto& [installed, latest, upToDate] : kRows)
    {
        EXPECT_EQ(IsUpToDate(installed, latest), upToDate)
            << InstalledVersionText(installed) << " " << InstalledVersionText(latest);
    }
}

TEST(ProgramVersionTest, TheMinorNumberHasTwoDigitsAndTheRevisionNone)
{
    constexpr std::tuple<ProgramVersion, const char*, const char*> kRows[] = {
        {{8, 2, 15}, "8.02.15", "8.02.15"},     {{8, 1, 112}, "8.01.112", "8.01.112"},
        {{10, 123, 0}, "10.123.0", "10.123.0"}, {{8, 2, -1}, "8.02.-1", "8.02"},
        {{8, 0, 0}, "8.00.0", "8.00.0"},        {{0, 2, 3}, "0.02.3", "?"},
        {{-1, -2, 3}, "-1.-02.3", "-1.-02.3"},
    };
    for (const auto& [version, installed, latest] : kRows)
    {
        EXPECT_EQ(InstalledVersionText(version), installed);
        EXPECT_EQ(LatestVersionText(version), latest);
    }
}

TEST(ProgramRowTest, EachStatusHasItsNotice)
{
    const ProgramVersion installed{8, 2, 15};
    const std::tuple<ProgramRow, const char*, const char*> rows[] = {
        {{.index = 4, .latest = installed},
         "Update Status Unknown",
         "There was a problem in getting the update status for Loadcalc 8."},
        {{.index = 4, .installed = installed, .latest = installed},
         "Up to Date",
         "Loadcalc 8 is up to date."},
        {{.index = 4, .installed = installed, .latest = {8, 2, 16}},
         "Need to Update",
         "Loadcalc 8 needs to be updated.  Click \"Download Update for Loadcalc 8\" to download "
         "and install the update."},
    };
    for (const auto& [row, title, text] : rows)
    {
        EXPECT_EQ(StatusNoticeOf(row).title, title);
        EXPECT_EQ(StatusNoticeOf(row).text, text);
    }
}

using testing::HasSubstr;

constexpr std::int32_t kLoadcalc = 4;
constexpr std::int32_t kWithoutUpdatePage = 9;

class ProgramActionsTest : public test::ProgramDesktop
{
  protected:
    VendorServer m_server{"http://vendor.example", "http://192.0.2.17"};
    std::vector<std::string> m_opened;
    std::vector<std::size_t> m_told; ///< Notices that had been shown at each opening.
    Result<Done> m_outcome = Done{};
    AddressOpener m_opener{m_log, [this](const std::string& address) {
                               m_opened.push_back(address);
                               m_told.push_back(m_prompts.notices.size());
                               return m_outcome;
                           }};
    ProgramActions m_actions{m_server, m_prompts, m_opener};
};

TEST_F(ProgramActionsTest, ADownloadTakesTheListedAddressElseTheCataloguesOwn)
{
    m_actions.Download({.index = kLoadcalc, .demoAddress = "  ftp://mirror.example/lc.exe "});
    m_actions.Download({.index = kLoadcalc});
    m_actions.Download({.index = kLoadcalc, .demoAddress = "   "});
    m_actions.Download({.index = 1});
    EXPECT_THAT(m_opened, ElementsAre("ftp://mirror.example/lc.exe",
                                      "http://vendor.example/pub/demo/lc8setup.exe",
                                      "http://vendor.example/pub/demo/lc8setup.exe",
                                      "http://192.0.2.17/pub/chlsz40.exe"));
}

TEST_F(ProgramActionsTest, TheReminderComesBeforeEveryDownload)
{
    m_actions.Download({.index = kLoadcalc});
    m_actions.Download({.index = -1}); // No address at all.
    ASSERT_EQ(m_prompts.notices.size(), 2U);
    EXPECT_THAT(m_told, ElementsAre(1U));
    EXPECT_EQ(m_prompts.notices[1].icon, PromptIcon::Information);
    EXPECT_EQ(m_prompts.notices[1].title, "Reminder to Close Open Programs");
    EXPECT_EQ(m_prompts.notices[1].text,
              "Once the download is finished, be sure to close this program (Update Manager) as "
              "well as any other programs you have open, especially the program you are about to "
              "download, before actually running the setup.");
    EXPECT_EQ(m_opened.size(), 1U);
}

TEST_F(ProgramActionsTest, PagesAreTheCatalogues)
{
    m_actions.OpenUpdatePage(kLoadcalc);
    m_actions.OpenUpdatePage(kWithoutUpdatePage);
    m_actions.OpenInformationPage(kLoadcalc);
    m_actions.OpenInformationPage(31); // The update manager has none.
    EXPECT_THAT(m_opened, ElementsAre("http://vendor.example/web/hvacr/loadcalc8_ver.html",
                                      "http://vendor.example/web/errors/noupdatepage.txt",
                                      "http://vendor.example/web/hvacr/loadcalc_info.html"));
}

TEST_F(ProgramActionsTest, WhatIsNoAddressOfTheWebIsNeverOpenedButLogged)
{
    for (const char* listed : {"C:\\Windows\\system32\\calc.exe", "calc.exe /s",
                               "file:///C:/setup.exe", "\\\\server\\share\\x.exe", "-x"})
    {
        m_actions.Download({.index = kLoadcalc, .demoAddress = listed});
        EXPECT_THAT(LogText(), HasSubstr(listed));
    }
    EXPECT_TRUE(m_opened.empty());
}

TEST_F(ProgramActionsTest, AFailureToOpenIsLoggedAndNobodyIsBothered)
{
    m_outcome = Error{1155, "No browser"};
    m_actions.OpenInformationPage(kLoadcalc);
    EXPECT_TRUE(m_prompts.notices.empty());
    EXPECT_THAT(LogText(), HasSubstr("loadcalc_info.html: No browser (1155)"));
}

} // namespace
} // namespace velmo
