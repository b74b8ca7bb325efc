#include "app/frmMain.h"

#include "app/BuildInformation.h"
#include "app/CCheckOtherInstance.h"
#include "app/ConnectPanel.h"
#include "app/EquipmentPage.h"
#include "app/NewsPage.h"
#include "app/ProgramsPage.h"
#include "app/UpdateWindows.h"
#include "app/WindowSettings.h"
#include "platform/MessageLoop.h"
#include "text/TextCase.h"
#include "ui/WxText.h"
#include "updates/StartupCheck.h"

#include <wx/notebook.h>
#include <wx/sizer.h>
#include <wx/statusbr.h>
#include <wx/weakref.h>

#include <array>

namespace velmo
{
namespace
{

constexpr std::array kTabCaptions{"Progr&ams", "&HVAC Equipment Databases", "&Latest News"};

constexpr std::size_t kProgramsTab = 0;
constexpr std::size_t kEquipmentTab = 1;
constexpr std::size_t kNewsTab = 2;

constexpr std::chrono::milliseconds kTimerInterval(1000);

const wxSize kDefaultSize(1000, 720);

/// The default size again, in characters of the window's font, which a person may have enlarged.
const wxSize kDefaultCharacters(120, 40);
const wxSize kLeastSize(720, 520);

} // namespace

frmMain::frmMain(UpdateManager& manager, UpdateWindows& windows, platform::MessageLoop& loop)
    : FrameOfClass(kMainWindowClass, kMainWindowCaption, "frmMain", kDefaultSize,
                   kDefaultCharacters),
      m_manager(manager), m_windows(windows), m_loop(loop),
      m_menu(*this, manager, windows, MenuHost()), m_place(manager.Settings(), kMainWindowSection)
{
    SetMinSize(FromDIP(kLeastSize));
    Bind(wxEVT_CLOSE_WINDOW, &frmMain::OnClose, this);
    loop.Yield();
    CreateControls();
    m_news->OpenNewsPage();
    RestoreState();
    m_manager.FillLists();
}

MainMenu::Host frmMain::MenuHost()
{
    return {[this](std::size_t tab) { m_tabs->SetSelection(tab); },
            [this](int direction) { m_tabs->AdvanceSelection(direction > 0); },
            [this](std::size_t tab) { FocusContents(tab); },
            [this](int lines) {
                const bool onNews = m_tabs->GetSelection() == static_cast<int>(kNewsTab);
                onNews ? m_news->MoveBar(lines) : m_programs->MoveBar(lines);
            },
            [this](std::size_t column) { m_programs->SortBy(column); }};
}

void frmMain::FocusContents(std::size_t tab)
{
    m_tabs->SetSelection(tab);
    if (tab == kEquipmentTab)
    {
        m_equipment->FocusGrid();
    }
    else if (tab == kNewsTab)
    {
        m_news->FocusHeadlines();
    }
    else
    {
        m_programs->FocusList();
    }
}

void frmMain::CreateControls()
{
    wxPanel& body = Body();
    auto* tabs = new wxNotebook(&body, wxID_ANY);
    tabs->SetName("tbsMain");
    m_tabs = tabs;
    m_programs = new ProgramsPage(tabs, m_manager, m_windows, m_loop);
    tabs->AddPage(m_programs, kTabCaptions[0]);
    m_equipment = new EquipmentPage(tabs, m_manager, m_windows, m_loop);
    tabs->AddPage(m_equipment, kTabCaptions[1]);
    m_news =
        new NewsPage(tabs, m_manager,
                     {[this] { m_tabs->SetSelection(kNewsTab); },
                      [this](const std::string& link) { ShowLink(link); },
                      [this](const std::string& address) { m_manager.Addresses().Open(address); }});
    tabs->AddPage(m_news, kTabCaptions[2]);
    for (const EquipmentPage::ColumnGroup& group : EquipmentPage::ColumnGroups())
    {
        m_menu.AddToggle(group.caption, m_equipment->IsShown(group),
                         [this, &group](bool shown) { m_equipment->Show(group, shown); });
    }
    m_connect = new ConnectPanel(&body, m_manager, [this](UpdateKind kind) { GoToFirst(kind); });
    auto* sizer = new wxBoxSizer(wxVERTICAL);
    sizer->Add(tabs, wxSizerFlags(1).Expand().Border(wxALL, FromDIP(6)));
    sizer->Add(m_connect, wxSizerFlags().Expand());
    body.SetSizer(sizer);
    CreateStatusBar()->SetName("sbrMain");
    m_report = m_manager.Lists().ReportChanged().Add([this] { ShowStatus(); });
    ShowStatus();
    tabs->Bind(wxEVT_NOTEBOOK_PAGE_CHANGED, [this](wxBookCtrlEvent& event) {
        event.Skip();
        m_programs->ShowSelectedProgram();
    });
}

void frmMain::Open(const std::string& commandLine)
{
    Show();
    SelectProgram(std::string(Trimmed(commandLine)));
    m_programs->FocusList();
    StartTimer(commandLine);
    if (StartupRequest(commandLine).databasesTab)
    {
        m_tabs->SetSelection(kEquipmentTab);
    }
}

void frmMain::OpenOnUpdates(const std::string& caller, bool databasesTab)
{
    Show();
    SelectProgram(caller);
    m_programs->FocusList();
    if (databasesTab)
    {
        m_tabs->SetSelection(kEquipmentTab);
    }
}

/// The first one when none has that name.
void frmMain::SelectProgram(const std::string& name)
{
    ListViewModel& list = m_manager.Programs().List();
    if (!list.Select(name))
    {
        list.SelectAt(0);
    }
    list.ScrollTo(list.SelectedPosition());
}

void frmMain::StartTimer(const std::string& commandLine)
{
    const wxWeakRef<frmMain> window(this);
    m_loop.After(kTimerInterval, [window, commandLine] {
        if (window != nullptr)
        {
            window->OnTimer(commandLine);
        }
    });
}

void frmMain::OnTimer(const std::string& commandLine)
{
    // A person who was quicker has asked for the lists already, or has a window open: let that end.
    if (m_manager.Lists().Busy() || IsBlocked())
    {
        StartTimer(commandLine);
        return;
    }
    m_manager.RunAfterOpening(StartupRequest(commandLine), kOwnInformation.version, m_windows);
}

void frmMain::ShowLink(const std::string& link)
{
    m_link = link;
    ShowStatus();
}

/// The link under the mouse, else what the lists and their counts rest on.
void frmMain::ShowStatus()
{
    const std::string text = m_link.empty() ? StatusBarText(m_manager.Lists().Report()) : m_link;
    // Only when it differs, so that the text does not flicker.
    if (FromWx(GetStatusBar()->GetStatusText()) != text)
    {
        SetStatusText(ToWx(text));
    }
}

void frmMain::GoToFirst(UpdateKind kind)
{
    const auto found = m_manager.Shown().GoToFirst(kind);
    if (found)
    {
        m_tabs->SetSelection(*found == UpdateKind::Program ? kProgramsTab : kEquipmentTab);
    }
}

bool frmMain::ComeForward()
{
    if (!IsShown())
    {
        return false;
    }
    if (IsIconized())
    {
        Restore();
    }
    Raise();
    return true;
}

void frmMain::OnClose(wxCloseEvent& event)
{
    if (FetchedFiles::PointAtTestLists())
    {
        m_windows.Notify(PromptIcon::Stop, "Correct the constants in frmMain of VelmoUpd",
                         "Rebuild Needed");
    }
    if (event.CanVeto() && (m_manager.Lists().Busy() || IsBlocked()))
    {
        event.Veto();
        return;
    }
    SaveState();
    Destroy();
}

/// True while another window of the program waits for an answer.
bool frmMain::IsBlocked() const
{
    return m_dialogs.Open() > 0;
}

void frmMain::RestoreState()
{
    m_place.Restore(*this);
    Layout();
    m_programs->RestoreState();
    m_connect->ShowAutoConnect();
}

void frmMain::SaveState()
{
    m_manager.DeleteLists();
    m_place.Save(*this);
    m_programs->SaveState();
}

} // namespace velmo
