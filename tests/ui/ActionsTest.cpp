#include "app/BuildInformation.h"
#include "app/ProgramsPage.h"
#include "platform/DesktopFolders.h"
#include "platform/MFile.h"
#include "tests/ui/WindowUnderTest.h"
#include "ui/BrowserPane.h"
#include "ui/LinkGrid.h"
#include "ui/ListView.h"

#include <gmock/gmock.h>

#include <wx/bookctrl.h>
#include <wx/clipbrd.h>
#include <wx/menu.h>
#include <wx/statusbr.h>

#ifdef __WXMSW__
#include <wx/msw/private.h>
#endif

namespace velmo::test
{
namespace
{

using testing::ElementsAre;

constexpr char kVersionList[] =
    "[Loadcalc 8]\r\nMajor=8\r\nDemo URL= http://setups.example/lc8.exe \r\n"
    "[Pipesize 3]\r\nMajor=3\r\nDemo URL=file:///C:/windows/notepad.exe\r\n"
    "[News Headlines]\r\nFirst headline|http://127.0.0.1:9/first.html\r\nJust a line\r\n"
    "Odd|javascript:alert(1)\r\n";

class ActionsTest : public testing::Test
{
  protected:
    ActionsTest() { m_desktop.ServeLists(kVersionList); }

    void Open(WindowUnderTest& test, const char* program)
    {
        test.OpenAndFetch();
        test.manager.Programs().List().Select(program);
    }

    std::string Server(const char* path) const { return m_desktop.server.Url(path); }

    WindowDesktop m_desktop;
};

TEST_F(ActionsTest, TheButtonsOpenWhatTheyNameAndARefusedAddressIsNotOpened)
{
    WindowUnderTest test;
    Open(test, "Loadcalc 8");
    for (const char* button : {"cmdDownloadUpdate", "cmdGoToUpdatePage", "cmdGoToInfoPage"})
    {
        test.Press(button);
    }
    const auto loadcalcs =
        ElementsAre("http://setups.example/lc8.exe", Server("/web/hvacr/loadcalc8_ver.html"),
                    Server("/web/hvacr/loadcalc_info.html"));
    EXPECT_THAT(test.opened, loadcalcs);
    EXPECT_EQ(test.prompts.notices.size(), 1U);
    test.manager.Programs().List().Select("Pipesize 3"); // Its address is no web address.
    test.Press("cmdDownloadUpdate");
    EXPECT_EQ(test.prompts.notices.size(), 2U) << "the reminder comes all the same";
    EXPECT_THAT(test.opened, loadcalcs);
}

TEST_F(ActionsTest, TheMenuCopiesCaptionsAndStatesButForTheDownloads)
{
    WindowUnderTest test;
    Open(test, "Loadcalc 8");
    auto& page = test.Find<ProgramsPage>("picHoldPrograms");
    wxMenu menu;
    page.FillMenu(menu);
    EXPECT_EQ(EntriesOf(menu), "&Download Demo for Loadcalc 8\n"
                               "&Go to Update Page for Loadcalc 8\n"
                               "Go to &Info Page for Loadcalc 8\n-\n"
                               "Set &Update Options for Loadcalc 8... (grey)\n")
        << "the program does not start the update manager";
    Choose(menu, "Go to Info Page for Loadcalc 8");
    EXPECT_THAT(test.opened, ElementsAre(Server("/web/hvacr/loadcalc_info.html")));
    test.manager.Programs().List().Select("");
    wxMenu ofNone;
    page.FillMenu(ofNone);
    EXPECT_EQ(EntriesOf(ofNone).substr(0, 10), "&Download\n");
    Choose(ofNone, "Download");
    EXPECT_EQ(test.opened.size() + test.prompts.notices.size(), 1U) << "nothing";
}

TEST_F(ActionsTest, TheSelectedProgramsPageIsShownWhereARunThroughTheListStops)
{
    WindowUnderTest test;
    Open(test, "Loadcalc 8");
    const auto& page = test.Find<BrowserPane>("webMain");
    const std::string first = Server("/web/hvacr/loadcalc8_ver.html#updatetext");
    test.loop.Fire(kPageTimer);
    EXPECT_EQ(page.Address(), first);
    for (const char* program : {"Airflow 3", "Pipesize 3", "Wiring 2"})
    {
        test.manager.Programs().List().Select(program);
        EXPECT_EQ(page.Address(), first);
    }
    test.loop.Fire(kPageTimer);
    const std::string second = Server("/web/electrical/wiring_ver.html#updatetext");
    EXPECT_EQ(page.Address(), second);

    auto& tabs = test.Find<wxBookCtrlBase>("tbsMain");
    tabs.SetSelection(2);
    test.manager.Programs().List().Select("Loadcalc 8");
    test.loop.Fire(kPageTimer);
    EXPECT_EQ(page.Address(), second) << "nobody sees the page";
    tabs.SetSelection(0);
    test.loop.Fire(kPageTimer);
    EXPECT_EQ(page.Address(), first);
}

#ifdef __WXMSW__
TEST_F(ActionsTest, AnUnderlinedLetterReachesItsControlFromTheList)
{
    WindowUnderTest test;
    Open(test, "Loadcalc 8");
    constexpr LPARAM kWithAlt = LPARAM{1} << 29;
    ::PostMessageW(test.Find<ListView>("lvwMain").GetHandle(), WM_SYSCHAR, L'r', kWithAlt);
    test.WaitFor("another fetch", [&] { return m_desktop.Fetches() == 2; });
    test.WaitFor("its end", [&] { return !test.manager.Lists().Busy(); });
}
#endif

TEST_F(ActionsTest, DetailsForSupportAreCopiedAndAMissingLogIsTold)
{
    WindowUnderTest test;
    Open(test, "");
    wxMenu& help = *test.window->GetMenuBar()->GetMenu(2);
    Choose(help, "Copy Details");
    wxTextDataObject details;
    {
        const wxClipboardLocker clipboard;
        ASSERT_TRUE(!!clipboard);
        ASSERT_TRUE(wxTheClipboard->GetData(details));
    }
    EXPECT_THAT(details.GetText().utf8_string(),
                testing::AllOf(testing::HasSubstr(kOwnInformation.versionText),
                               testing::HasSubstr(platform::ProgramFolder()),
                               testing::HasSubstr(Server(""))));
    ASSERT_TRUE(platform::MFile::DeleteIfExists(test.manager.Log().Path()).Ok());
    Choose(help, "Open Log File");
    EXPECT_THAT(test.prompts.Lines(), ElementsAre("Log File|There is no log file yet: nothing has "
                                                  "gone wrong so far."));
}

TEST_F(ActionsTest, AHeadlineOpensInTheNewsPaneAndOnlyWebLinksDo)
{
    WindowUnderTest test;
    Open(test, "");
    auto& grid = test.Find<LinkGrid>("flxNewsHeadlines");
    ASSERT_EQ(grid.GetNumberRows(), 3);
    EXPECT_EQ(grid.GetColLabelValue(1), "Latest Velmo Software News Headlines");
    EXPECT_FALSE(grid.IsColShown(0)) << "links are hidden";
    EXPECT_TRUE(grid.GetCellFont(0, 1).GetUnderlined());
    EXPECT_FALSE(grid.GetCellFont(1, 1).GetUnderlined());
    EXPECT_EQ(grid.GetCellValue(1, 1), "Just a line");
    EXPECT_EQ(grid.LinkOf(1), "");
    EXPECT_EQ(grid.LinkOf(2), "");
    const auto linkPointedAt = [&](int row) {
        wxMouseEvent move(wxEVT_MOTION);
        move.SetPosition(grid.CalcScrolledPosition(grid.CellToRect(row, 1).GetPosition()) +
                         wxPoint(5, 5));
        grid.GetGridWindow()->ProcessWindowEvent(move);
        return test.window->GetStatusBar()->GetStatusText().utf8_string();
    };
    EXPECT_EQ(linkPointedAt(0), "http://127.0.0.1:9/first.html");
    EXPECT_TRUE(linkPointedAt(1).starts_with("Checked ")) << "no link: what the lists rest on";
    auto& tabs = test.Find<wxBookCtrlBase>("tbsMain");
    Click(grid, 1, 1);
    Click(grid, 2, 1);
    EXPECT_EQ(tabs.GetSelection(), 0);
    Click(grid, 0, 1);
    EXPECT_EQ(tabs.GetSelection(), 2);
    EXPECT_EQ(test.Find<BrowserPane>("webNews").Address(), "http://127.0.0.1:9/first.html");
}

} // namespace
} // namespace velmo::test
