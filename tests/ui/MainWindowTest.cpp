#include "tests/ui/WindowUnderTest.h"

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

#include <array>

namespace velmo::test
{
namespace
{

constexpr char kVersionList[] = "[Loadcalc 8]\r\nMajor=8\r\nMinor=2\r\nRevision=15\r\n";
constexpr char kNoAutoConnect[] = "[Miscellaneous]\r\nAutoConnect=0 'False\r\n";

std::string Label(const wxWindow& control)
{
    return control.GetLabel().utf8_string();
}

TEST(MainWindowTest, BearsItsCaptionItsTabsAndItsMenus)
{
    const WindowDesktop desktop;
    WindowUnderTest test;
    EXPECT_EQ(test.window->GetTitle(), "Velmo Software Update Manager");
    auto& tabs = test.Find<wxBookCtrlBase>("tbsMain");
    ASSERT_EQ(tabs.GetPageCount(), 3U);
    EXPECT_EQ(wxControl::RemoveMnemonics(tabs.GetPageText(0)), "Programs");
    EXPECT_EQ(wxControl::RemoveMnemonics(tabs.GetPageText(1)), "HVAC Equipment Databases");
    EXPECT_EQ(wxControl::RemoveMnemonics(tabs.GetPageText(2)), "Latest News");
    wxMenuBar* menus = test.window->GetMenuBar();
    EXPECT_EQ(menus->GetMenuLabel(0), "&File");
    EXPECT_EQ(menus->GetMenuLabel(1), "&Help");
    EXPECT_EQ(menus->FindItem(wxID_EXIT)->GetItemLabel(), "E&xit\tAlt+F4");
    EXPECT_EQ(menus->FindItem(wxID_ABOUT)->GetItemLabel(), "&About Update Manager...");
    EXPECT_EQ(Label(test.Find<wxStaticText>("lblStats")),
              "Need to Update:  Programs: 0, Databases: 0, Pictures: 0");
    EXPECT_FALSE(test.window->IsShown()) << "loading does not show the window";
}

TEST(MainWindowTest, FetchesAfterItOpensAndTellsWhatItDid)
{
    WindowDesktop desktop;
    desktop.ServeLists(kVersionList);
    WindowUnderTest test;
    test.window->Open("Loadcalc 8");
    EXPECT_TRUE(test.window->IsShown());
    test.WaitFor("the fetch", [&] { return test.manager.Lists().Succeeded(); });
    test.WaitFor("its end", [&] { return !test.manager.Lists().Busy(); });
    EXPECT_EQ(test.Find<wxTextCtrl>("txtStatus").GetValue().utf8_string(),
              "Attempting to connect...\nVersion information successfully downloaded\n"
              "Program and database lists have been refreshed");
    EXPECT_EQ(test.manager.Programs().List().SelectedRow()->key, "Loadcalc 8");
    EXPECT_EQ(Label(test.Find<wxButton>("cmdDownloadUpdate")), "&Download Demo for Loadcalc 8");
    EXPECT_EQ(Label(test.Find<wxButton>("cmdGoToUpdatePage")), "&Go to Update Page for Loadcalc 8");
    auto& list = test.Find<ListView>("lvwMain");
    EXPECT_EQ(list.GetItemCount(), 33);
    EXPECT_EQ(list.GetItemText(4, 3), "8.02.15");
}

TEST(MainWindowTest, CancelIsSeenWhileTheServerIsSilentAndClosingIsRefusedUntilThen)
{
    WindowDesktop desktop;
    desktop.ServeLists(kVersionList);
    desktop.WriteSettings(kNoAutoConnect);
    desktop.server.Play("/pub/demo/version.ini",
                        {FaultServer::Hold(), FaultServer::Answer("200 OK", kVersionList)[0]});
    WindowUnderTest test;
    test.window->Open("");
    EXPECT_EQ(Label(test.Find<wxButton>("cmdReconnect")), "&Refresh Lists");
    bool canceled = false;
    test.loop.Post([&] { test.Press("cmdReconnect"); });
    test.loop.After(std::chrono::milliseconds(200), [&] {
        EXPECT_EQ(Label(test.Find<wxButton>("cmdReconnect")), "&Cancel");
        EXPECT_FALSE(test.window->Close()) << "a fetch is under way";
        test.Press("cmdReconnect");
        canceled = true;
        desktop.server.Release("/pub/demo/version.ini");
    });
    test.WaitFor("the end", [&] { return canceled && !test.manager.Lists().Busy(); });
    EXPECT_TRUE(test.manager.StatusBox().Text().ends_with("Connection Canceled\r\n"));
    EXPECT_EQ(test.pointer.Shape(), PointerShape::Normal);
    EXPECT_TRUE(test.window->Close());
}

TEST(MainWindowTest, ClosingDeletesTheListsAndRemembersTheWindow)
{
    WindowDesktop desktop;
    desktop.ServeLists(kVersionList);
    desktop.WriteSettings(std::string(kNoAutoConnect) +
                          "[Main Window]\r\nLeft=900\r\nTop=600\r\nWidth=13500\r\nHeight=9600\r\n");
    {
        WindowUnderTest test;
        test.window->Open("");
        test.manager.FetchLists();
        EXPECT_TRUE(platform::MFile::FileExists(platform::ProgramFolder() + "version.ini"));
        test.manager.Programs().List().SetColumnWidth(1, 2550);
        test.loop.Yield();
        test.window->Close();
        test.WaitFor("the window's end", [&] { return test.IsClosed(); });
    }
    EXPECT_FALSE(platform::MFile::FileExists(platform::ProgramFolder() + "version.ini"));
    EXPECT_FALSE(platform::MFile::FileExists(platform::ProgramFolder() + "manufver.ini"));
    EXPECT_EQ(desktop.Setting("Program List", "ColumnHeaderWidth1"), "2550");
    EXPECT_NE(desktop.Setting("Program List", "ColumnHeaderWidth5"), "(none)");
    EXPECT_EQ(desktop.Setting("Program List", "ColumnHeaderWidth6"), "(none)");
    EXPECT_NE(desktop.Setting("Main Window", "SliderTopPrograms"), "(none)");
    EXPECT_EQ(desktop.Setting("Main Window", "State"), "0");

    WindowUnderTest again;
    EXPECT_EQ(again.window->GetSize(), wxSize(900, 640));
    EXPECT_EQ(again.manager.Programs().List().Columns()[0].width, 2550);
}

TEST(MainWindowTest, AWindowThatStoodOffTheScreenComesBackOntoIt)
{
    for (const char* left : {"900000", "-900000", "1e30", "x"})
    {
        SCOPED_TRACE(left);
        WindowDesktop desktop;
        desktop.WriteSettings(std::string("[Main Window]\r\nLeft=") + left +
                              "\r\nTop=-450000\r\nWidth=15000\r\nHeight=900000\r\nState=0\r\n");
        const WindowUnderTest test;
        const wxRect place = test.window->GetRect();
        EXPECT_TRUE(wxDisplay(0U).GetClientArea().Contains(place))
            << place.x << " " << place.y << " " << place.width << " " << place.height;
    }
}

TEST(MainWindowTest, ASplitterPositionOutsideThePanelBecomes600)
{
    struct Row
    {
        double stored;
        double expected;
    };
    constexpr double kHeight = 6000;
    constexpr std::array rows{Row{-5, 600}, Row{6000, 600}, Row{7000, 600}, Row{3000, 3000}};
    for (const Row& row : rows)
    {
        EXPECT_EQ(UsableBarTop(row.stored, kHeight), row.expected) << row.stored;
    }
}

TEST(MainWindowTest, ABarAtTheTopStaysThere)
{
    const WindowDesktop desktop;
    desktop.WriteSettings(std::string(kNoAutoConnect) +
                          "[Main Window]\r\nSliderTopPrograms=-5\r\n");
    WindowUnderTest test;
    test.window->Open("");
    const auto& splitter = test.Find<CHorizontalSplitter>("fraSplitterProgram");
    test.WaitFor("the bar", [&] { return splitter.BarTop() == 600; });
    test.window->Close();
    EXPECT_EQ(desktop.Setting("Main Window", "SliderTopPrograms"), "600");
}

TEST(MainWindowTest, ABarThatAPersonPutComesBackAfterASmallWindow)
{
    const WindowDesktop desktop;
    desktop.WriteSettings(kNoAutoConnect);
    WindowUnderTest test;
    test.window->SetSize(1000, 900);
    test.window->Open("");
    auto& splitter = test.Find<CHorizontalSplitter>("fraSplitterProgram");
    test.WaitFor("the layout", [&] { return splitter.GetClientSize().y > 400; });
    wxSplitterEvent drag(wxEVT_SPLITTER_SASH_POS_CHANGING, &splitter);
    const int place = splitter.GetClientSize().y - 100;
    drag.SetSashPosition(place);
    splitter.ProcessWindowEvent(drag);
    splitter.RefreshBar();
    EXPECT_EQ(splitter.GetSashPosition(), place);
    test.window->SetSize(1000, 600);
    test.WaitFor("a small window", [&] {
        return splitter.GetClientSize().y < place && splitter.GetSashPosition() < place;
    });
    EXPECT_GT(splitter.GetSashPosition(), 40) << "as far down as there is room";
    test.window->SetSize(1000, 900);
    test.WaitFor("the bar", [&] { return splitter.GetSashPosition() == place; });
}

TEST(MainWindowTest, DatabasesAreShownToThoseWhoAskForThem)
{
    WindowDesktop desktop;
    desktop.ServeLists(kVersionList);
    {
        WindowUnderTest test;
        test.window->Open("Manufacturer Databases");
        EXPECT_EQ(test.Find<wxBookCtrlBase>("tbsMain").GetSelection(), 1);
        test.WaitFor("the fetch", [&] { return test.manager.Lists().Succeeded(); });
        test.WaitFor("its end", [&] { return !test.manager.Lists().Busy(); });
        EXPECT_TRUE(test.prompts.notices.empty()) << "no program was named";
    }
    for (const bool databases : {true, false})
    {
        WindowUnderTest test;
        test.window->OpenOnUpdates("Loadcalc 8", databases);
        EXPECT_EQ(test.Find<wxBookCtrlBase>("tbsMain").GetSelection(), databases ? 1 : 0);
        EXPECT_EQ(test.manager.Programs().List().SelectedRow()->key, "Loadcalc 8");
    }
}

TEST(MainWindowTest, TheCheckBoxIsKeptAndDecidesAboutTheNextOpening)
{
    WindowDesktop desktop;
    desktop.ServeLists(kVersionList);
    {
        WindowUnderTest test;
        auto& box = test.Find<wxCheckBox>("chkAutoConnect");
        EXPECT_TRUE(box.IsChecked()) << "the default";
        box.SetValue(false);
        wxCommandEvent click(wxEVT_CHECKBOX, box.GetId());
        click.SetEventObject(&box);
        click.SetInt(0);
        box.GetEventHandler()->ProcessEvent(click);
        EXPECT_EQ(desktop.Setting("Miscellaneous", "AutoConnect"), "0 'False");
    }
    WindowUnderTest test;
    test.window->Open("");
    bool later = false;
    // Timers of one length fire in the order in which they were started.
    test.loop.After(std::chrono::milliseconds(1100), [&] { later = true; });
    test.WaitFor("the timer", [&] { return later; });
    EXPECT_FALSE(test.manager.Lists().Busy());
    EXPECT_EQ(desktop.server.CountOf("/pub/demo/version.ini"), 0);
}

TEST(MainWindowTest, AHeaderClickSortsAndASecondOneReverses)
{
    const WindowDesktop desktop;
    WindowUnderTest test;
    auto& list = test.Find<ListView>("lvwMain");
    const auto click = [&](int column) {
        wxListEvent event(wxEVT_LIST_COL_CLICK, list.GetId());
        event.m_col = column;
        event.SetEventObject(&list);
        list.GetEventHandler()->ProcessEvent(event);
    };
    EXPECT_EQ(list.GetItemText(4, 0), "Loadcalc 8") << "the vendor's own order";
    click(0);
    EXPECT_EQ(list.GetItemText(0, 0), "Airflow 3");
    click(0);
    EXPECT_EQ(list.GetItemText(0, 0), "Wiring 2");
    EXPECT_EQ(test.manager.Programs().List().Columns()[0].mark, SortOrder::Descending);
}

} // namespace
} // namespace velmo::test
