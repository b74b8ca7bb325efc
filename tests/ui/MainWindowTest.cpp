#include "tests/ui/WindowUnderTest.h"

#include "catalogue/ProgramTable.h"
#include "platform/DesktopFolders.h"
#include "platform/MFile.h"
#include "ui/CHorizontalSplitter.h"
#include "ui/ListView.h"

#include <gtest/gtest.h>

#include <wx/bookctrl.h>
#include <wx/checkbox.h>
#include <wx/display.h>
#include <wx/menu.h>
#include <wx/stattext.h>
#include <wx/statusbr.h>
#include <wx/textctrl.h>

namespace velmo::test
{
namespace
{

constexpr char kVersionList[] = "[Loadcalc 8]\r\nMajor=8\r\nMinor=2\r\nRevision=16\r\n";

/// A desktop for the window, whose server has that list.
class MainWindowTest : public testing::Test
{
  protected:
    MainWindowTest() { m_desktop.ServeLists(kVersionList); }

    WindowDesktop m_desktop;
};

TEST_F(MainWindowTest, BearsItsCaptionItsTabsItsMenusAndItsColumns)
{
    WindowUnderTest test;
    EXPECT_EQ(test.window->GetTitle(), "Velmo Software Update Manager");
    EXPECT_FALSE(test.window->IsShown()) << "loading does not show the window";
    wxString tabs;
    auto& book = test.Find<wxBookCtrlBase>("tbsMain");
    for (std::size_t page = 0; page < book.GetPageCount(); ++page)
    {
        tabs += wxControl::RemoveMnemonics(book.GetPageText(page)) + "|";
    }
    EXPECT_EQ(tabs, "Programs|HVAC Equipment Databases|Latest News|");
    std::string menus;
    const wxMenuBar& bar = *test.window->GetMenuBar();
    for (std::size_t menu = 0; menu < bar.GetMenuCount(); ++menu)
    {
        menus += bar.GetMenuLabel(menu).utf8_string() + "\n" + EntriesOf(*bar.GetMenu(menu));
    }
    EXPECT_EQ(menus, "&File\nE&xit\tAlt+F4\n"
                     "&View\n&Programs\tCtrl+1\nHVAC &Equipment Databases\tCtrl+2\n"
                     "&Latest News\tCtrl+3\n&Next Tab\tCtrl+PgDn\nPre&vious Tab\tCtrl+PgUp\n-\n"
                     "&Select a Program\tAlt+S\n&Tick Databases and Pictures\tAlt+T\n"
                     "Read Hea&dlines\tAlt+N\nS&ort Programs By\n"
                     "Move Bar &Up\tCtrl+Shift+Up\n&Move Bar Down\tCtrl+Shift+Down\n-\n"
                     "&Refresh Lists\tF5\n&Cancel\tEsc\n-\n"
                     "Names of Se&tup Files\n&Kinds of Equipment\n"
                     "&Help\nOpen &Log File\nCopy &Details\n-\n&About Update Manager...\n");
    std::string columns;
    const auto& list = test.Find<ListView>("lvwMain");
    for (int column = 0; column < list.GetColumnCount(); ++column)
    {
        wxListItem header;
        header.SetMask(wxLIST_MASK_TEXT);
        list.GetColumn(column, header);
        columns += header.GetText().utf8_string() + "|";
    }
    EXPECT_EQ(columns, "Program|Check for Update on Startup|Installed Version|Latest Version|"
                       "Need to Update|");
}

TEST_F(MainWindowTest, FetchesOnceAfterItOpensAndTellsWhatItDid)
{
    m_desktop.InstallLoadcalc();
    WindowUnderTest test;
    test.window->Open("  Loadcalc 8 ");
    EXPECT_TRUE(test.window->IsShown());
    EXPECT_EQ(test.manager.Programs().Selected()->Name(), "Loadcalc 8");
    auto& stats = test.Find<wxStaticText>("lblStats");
    EXPECT_EQ(stats.GetLabel(), "Need to Update:  Programs: 0, Databases: 0, Pictures: 0");
    EXPECT_EQ(stats.GetFont().GetWeight(), wxFONTWEIGHT_NORMAL);
    ASSERT_EQ(test.loop.Waiting(kOpeningTimer), 1U);
    EXPECT_EQ(m_desktop.Fetches(), 0);
    const wxStatusBar& bar = *test.window->GetStatusBar();
    EXPECT_EQ(bar.GetStatusText(), "Not checked yet");
    test.loop.Fire(kOpeningTimer);
    EXPECT_TRUE(bar.GetStatusText().StartsWith("Checked "));
    EXPECT_TRUE(test.manager.Lists().Report().Succeeded());
    EXPECT_EQ(test.loop.Waiting(kOpeningTimer), 0U) << "once";
    EXPECT_EQ(m_desktop.Fetches(), 1);
    EXPECT_EQ(test.Find<wxTextCtrl>("txtStatus").GetValue().utf8_string(),
              "Attempting to connect...\nVersion information successfully downloaded\n"
              "Program and database lists have been refreshed");
    EXPECT_EQ(stats.GetLabel(), "Need to Update:  Programs: 1, Databases: 0, Pictures: 0");
    EXPECT_EQ(stats.GetFont().GetWeight(), wxFONTWEIGHT_BOLD);
    EXPECT_EQ(TextsOf(*test.window, {"cmdDownloadUpdate", "cmdGoToUpdatePage"}),
              "Download Update for Loadcalc 8|Go to Update Page for Loadcalc 8|");
    auto& list = test.Find<ListView>("lvwMain");
    EXPECT_EQ(list.GetItemCount(), kProgramCount - 1) << "one is unlisted";
    EXPECT_EQ(list.GetItemText(4, 3), "8.02.16");
    wxListEvent header(wxEVT_LIST_COL_CLICK, list.GetId());
    header.m_col = 0;
    list.GetEventHandler()->ProcessEvent(header);
    EXPECT_EQ(list.GetItemText(0, 0), "Airflow 3") << "no longer in the vendor's own order";
    ASSERT_EQ(test.prompts.notices.size(), 1U);
    EXPECT_EQ(test.prompts.notices[0].title, "Need to Update") << "of the program that was named";

    auto& tabs = test.Find<wxBookCtrlBase>("tbsMain");
    tabs.SetSelection(2);
    test.manager.Programs().List().SelectAt(0);
    wxMouseEvent click(wxEVT_LEFT_DOWN);
    click.SetX(stats.GetSize().x);
    stats.ProcessWindowEvent(click);
    EXPECT_EQ(tabs.GetSelection(), 0) << "no pictures need an update, a program does";
    EXPECT_EQ(test.manager.Programs().Selected()->Name(), "Loadcalc 8");
}

TEST_F(MainWindowTest, TheTimerWaitsForAnOpenWindowToBeClosed)
{
    WindowUnderTest test;
    test.window->Open("");
    WhenShown("frmAbout", [&](wxWindow& about) {
        test.loop.Fire(kOpeningTimer);
        EXPECT_EQ(m_desktop.Fetches(), 0);
        EXPECT_FALSE(test.window->Close()) << "nor does the window close";
        Press(about, "cmdOK");
    });
    Choose(*test.window->GetMenuBar()->GetMenu(2), "About Update Manager...");
    test.loop.Fire(kOpeningTimer);
    EXPECT_EQ(m_desktop.Fetches(), 1);
    EXPECT_TRUE(test.window->Close());
}

TEST_F(MainWindowTest, CancelIsSeenWhileTheServerIsSilentAndClosingIsRefusedUntilThen)
{
    m_desktop.server.Play("/pub/demo/version.ini",
                          {FaultServer::Hold(), FaultServer::Answer("200 OK", kVersionList)[0]});
    WindowUnderTest test;
    test.window->Open("");
    EXPECT_EQ(TextOf(*test.window, "cmdReconnect"), "Refresh Lists");
    When([&] { return m_desktop.Fetches() == 1; },
         [&] {
             EXPECT_EQ(TextOf(*test.window, "cmdReconnect"), "Cancel");
             EXPECT_FALSE(test.window->Close()) << "a fetch is under way";
             test.Press("cmdReconnect");
             m_desktop.server.Release("/pub/demo/version.ini");
         });
    test.Press("cmdReconnect");
    EXPECT_TRUE(test.manager.StatusBox().Text().ends_with("Connection Canceled\r\n"));
    EXPECT_EQ(test.pointer.Shape(), PointerShape::Normal);
    EXPECT_TRUE(test.window->Close());
}

TEST_F(MainWindowTest, ClosingDeletesTheListsAndRemembersTheWindow)
{
    m_desktop.WriteSettings(
        std::string(kNoAutoConnect) +
        "[Main Window]\r\nLeft=900\r\nTop=600\r\nWidth=13500\r\nHeight=9600\r\n");
    {
        WindowUnderTest test;
        test.OpenAndFetch();
        EXPECT_TRUE(platform::MFile::FileExists(platform::ProgramFolder() + "version.ini"));
        test.manager.Programs().List().SetColumnWidth(1, 2550);
        test.loop.Yield();
        test.window->Close();
        test.WaitFor("the window's end", [&] { return test.IsClosed(); });
    }
    EXPECT_FALSE(platform::MFile::FileExists(platform::ProgramFolder() + "version.ini"));
    EXPECT_FALSE(platform::MFile::FileExists(platform::ProgramFolder() + "manufver.ini"));
    EXPECT_EQ(m_desktop.Setting("Program List", "ColumnHeaderWidth1"), "2550");
    EXPECT_NE(m_desktop.Setting("Program List", "ColumnHeaderWidth5"), "(none)");
    EXPECT_EQ(m_desktop.Setting("Program List", "ColumnHeaderWidth6"), "(none)");
    EXPECT_NE(m_desktop.Setting("Main Window", "SliderTopPrograms"), "(none)");
    EXPECT_EQ(m_desktop.Setting("Main Window", "SliderTopPrograms"),
              m_desktop.Setting("Main Window", "SliderTopDesign"));
    EXPECT_EQ(m_desktop.Setting("Main Window", "State"), "0");

    WindowUnderTest again;
    EXPECT_EQ(again.window->GetSize(), wxSize(900, 640));
    EXPECT_FALSE(again.Find<CHorizontalSplitter>("fraSplitterProgram").IsPut())
        << "nobody did: it follows the window's size";
    EXPECT_EQ(again.manager.Programs().List().Columns()[0].width, 2550);
}

TEST_F(MainWindowTest, AWindowThatStoodOffTheScreenComesBackOntoIt)
{
    for (const char* left : {"900000", "-900000", "1e30", "x"})
    {
        SCOPED_TRACE(left);
        m_desktop.WriteSettings(std::string("[Main Window]\r\nLeft=") + left +
                                "\r\nTop=-450000\r\nWidth=15000\r\nHeight=900000\r\nState=0\r\n");
        WindowUnderTest test;
        test.window->Open("");
        // The window manager may show it elsewhere at first.
        test.WaitFor("a place on the screen", [&] {
            return wxDisplay(0U).GetClientArea().Contains(test.window->GetRect());
        });
    }
}

TEST_F(MainWindowTest, ABarOutsideThePanelIsPutAt600)
{
    constexpr std::pair<double, double> kRows[] = {
        {-5, 600}, {6000, 600}, {7000, 600}, {3000, 3000}};
    for (const auto& [stored, expected] : kRows)
    {
        EXPECT_EQ(UsableBarTop(stored, 6000), expected) << stored;
    }
    m_desktop.WriteSettings(std::string(kNoAutoConnect) +
                            "[Main Window]\r\nSliderTopPrograms=-5\r\n");
    WindowUnderTest test;
    test.window->Open("");
    const auto& splitter = test.Find<CHorizontalSplitter>("fraSplitterProgram");
    test.WaitFor("the bar", [&] { return splitter.BarTop() == 600; });
    test.window->Close();
    EXPECT_EQ(m_desktop.Setting("Main Window", "SliderTopPrograms"), "600");
}

TEST_F(MainWindowTest, ABarThatAPersonPutComesBackAfterASmallWindow)
{
    m_desktop.WriteSettings(kNoAutoConnect);
    WindowUnderTest test;
    test.window->SetSize(1000, 900);
    test.window->Open("");
    auto& splitter = test.Find<CHorizontalSplitter>("fraSplitterProgram");
    test.WaitFor("the layout", [&] { return splitter.GetClientSize().y > 400; });
    wxSplitterEvent drag(wxEVT_SPLITTER_SASH_POS_CHANGING, &splitter);
    const int place = splitter.GetClientSize().y - 150;
    drag.SetSashPosition(place);
    splitter.ProcessWindowEvent(drag);
    splitter.RefreshBar();
    EXPECT_EQ(splitter.GetSashPosition(), place);
    test.window->SetSize(1000, 600);
    test.WaitFor("a small window", [&] {
        return splitter.GetClientSize().y < place && splitter.GetSashPosition() < place;
    });
    EXPECT_GT(splitter.GetSashPosition(), 40) << "as far down as there is room";
    test.window->Close();
    EXPECT_EQ(m_desktop.Setting("Main Window", "SliderTopPrograms"), std::to_string(place * 15));

    WindowUnderTest again;
    again.window->SetSize(1000, 600);
    again.window->Open("");
    auto& later = again.Find<CHorizontalSplitter>("fraSplitterProgram");
    again.WaitFor("too little room", [&] { return later.GetSashPosition() == 40; });
    again.WaitFor("the bar", [&] {
        // It may go to its stored place once more when it is first active.
        again.window->SetSize(1000, 900);
        return later.GetSashPosition() == place;
    });
}

TEST_F(MainWindowTest, AWindowThatIsClosedMaximisedKeepsThePlaceItHadBefore)
{
    m_desktop.WriteSettings(std::string(kNoAutoConnect) +
                            "[Main Window]\r\nState=2\r\nLeft=900\r\n"
                            "Top=600\r\nWidth=13500\r\nHeight=9600\r\n");
    WindowUnderTest test;
    test.window->Open("");
    test.WaitFor("maximised", [&] { return test.window->GetSize().x > 1200; });
    test.window->Maximize(false);
    const wxRect before(60, 40, 900, 640);
    test.WaitFor("its place", [&] { return test.window->GetRect() == before; });
    test.window->Maximize();
    test.WaitFor("maximised again", [&] { return test.window->GetSize().x > 1200; });
    test.window->Close();
    EXPECT_EQ(m_desktop.Setting("Main Window", "State"), "2");
    EXPECT_EQ(m_desktop.Setting("Main Window", "Left"), "900");
    EXPECT_EQ(m_desktop.Setting("Main Window", "Height"), "9600");
}

TEST_F(MainWindowTest, DatabasesAreShownToThoseWhoAskForThem)
{
    {
        WindowUnderTest test;
        test.window->Open("Manufacturer Databases");
        EXPECT_EQ(test.Find<wxBookCtrlBase>("tbsMain").GetSelection(), 1);
        test.loop.Fire(kOpeningTimer);
        EXPECT_TRUE(test.prompts.notices.empty()) << "no program was named";
    }
    for (const bool databases : {true, false})
    {
        WindowUnderTest test;
        test.window->OpenOnUpdates("Loadcalc 8", databases);
        EXPECT_EQ(test.Find<wxBookCtrlBase>("tbsMain").GetSelection(), databases ? 1 : 0);
        EXPECT_EQ(test.manager.Programs().Selected()->Name(), "Loadcalc 8");
        EXPECT_EQ(test.loop.Waiting(kOpeningTimer), 0U) << "the lists are there already";
    }
}

TEST_F(MainWindowTest, TheCheckBoxIsKeptAndDecidesAboutTheNextOpening)
{
    {
        WindowUnderTest test;
        auto& box = test.Find<wxCheckBox>("chkAutoConnect");
        EXPECT_TRUE(box.IsChecked()) << "the default";
        box.SetValue(false);
        wxCommandEvent click(wxEVT_CHECKBOX, box.GetId());
        click.SetEventObject(&box);
        click.SetInt(0);
        box.GetEventHandler()->ProcessEvent(click);
        EXPECT_EQ(m_desktop.Setting("Miscellaneous", "AutoConnect"), "0 'False");
    }
    WindowUnderTest test;
    EXPECT_FALSE(test.Find<wxCheckBox>("chkAutoConnect").IsChecked());
    test.window->Open("");
    test.loop.Fire(kOpeningTimer);
    EXPECT_EQ(m_desktop.Fetches(), 0);
}

} // namespace
} // namespace velmo::test
