#include "app/frmMain.h"

#include "app/CCheckOtherInstance.h"
#include "app/ConnectPanel.h"
#include "app/EquipmentPage.h"
#include "app/NewsPage.h"
#include "app/ProgramInformation.h"
#include "app/ProgramsPage.h"
#include "app/UpdateWindows.h"
#include "app/WindowSettings.h"
#include "app/frmAbout.h"
#include "platform/MFile.h"
#include "platform/MessageLoop.h"
#include "platform/Processes.h"
#include "settings/TextCase.h"
#include "ui/CFormHandler.h"
#include "ui/CListViewHandler.h"
#include "ui/WxText.h"
#include "updates/StartupRequest.h"

#include <wx/accel.h>
#include <wx/app.h>
#include <wx/clipbrd.h>
#include <wx/menu.h>
#include <wx/notebook.h>
#include <wx/sizer.h>
#include <wx/statusbr.h>
#include <wx/weakref.h>

#ifdef __WXMSW__
#include <wx/msw/private.h>
#endif

#include <algorithm>
#include <array>

namespace velmo
{
namespace
{

constexpr std::array kTabCaptions{"Progr&ams", "&HVAC Equipment Databases", "&Latest News"};

constexpr std::size_t kEquipmentTab = 1;
constexpr std::size_t kNewsTab = 2;

constexpr std::chrono::milliseconds kTimerInterval(1000);

const wxSize kDefaultSize(1000, 720);

/// The default size again, in characters of the window's font, which a person may have enlarged.
const wxSize kDefaultCharacters(120, 40);
const wxSize kLeastSize(720, 520);

} // namespace

frmMain::frmMain(UpdateManager& manager, UpdateWindows& windows, platform::MessageLoop& loop)
    : m_manager(manager), m_windows(windows), m_loop(loop)
{
    CreateWindow();
    loop.Yield();
    CreateMenus();
    CreateControls();
    m_news->OpenNewsPage();
    m_manager.Show(this);

    CFormHandler(m_manager.Settings(), kMainWindowSection).Restore(*this);
    Layout();
    m_programs->RestoreSplitter();
    m_connect->ShowAutoConnect();
    const CListViewHandler listHandler(m_manager.Settings());
    listHandler.LoadWidths(m_manager.Programs().List(), kProgramListSection);
    listHandler.LoadSort(m_manager.Programs().List(), kProgramListSection);
    m_manager.FillLists();
}

frmMain::~frmMain()
{
    m_manager.Show(nullptr);
}

void frmMain::CreateWindow()
{
    const wxString caption = ToWx(kMainWindowCaption);
    const wxSize size = FromDIP(kDefaultSize);
    SetName("frmMain");
#ifdef __WXMSW__
    // The toolkit has no way to choose the window class of a frame, by which other programs and a
    // second start look for this window: these are the steps of its own Create() with another class.
    wxTopLevelWindows.Append(this);
    CreateBase(nullptr, wxID_ANY, wxDefaultPosition, size, wxDEFAULT_FRAME_STYLE, "frmMain");
    WXDWORD extendedStyle = 0;
    const WXDWORD style = MSWGetCreateWindowFlags(&extendedStyle);
    const wxString wanted = ToWx(kMainWindowClass);
    const wxChar* windowClass =
        wxApp::GetRegisteredClassName(wanted.t_str(), COLOR_BTNFACE, 0, wxApp::RegClass_OnlyNR);
    MSWCreate(windowClass, caption.t_str(), wxDefaultPosition, size, style, extendedStyle);
    MSWUpdateUIState(UIS_INITIALIZE);
    SetOwnBackgroundColour(wxSystemSettings::GetColour(wxSYS_COLOUR_BTNFACE));
    SetIcon(wxIcon("aaaa"));
#else
    Create(nullptr, wxID_ANY, caption, wxDefaultPosition, size, wxDEFAULT_FRAME_STYLE, "frmMain");
#endif
    const wxSize characters(kDefaultCharacters.x * GetCharWidth(),
                            kDefaultCharacters.y * GetCharHeight());
    SetSize(wxSize(std::max(size.x, characters.x), std::max(size.y, characters.y)));
    SetMinSize(FromDIP(kLeastSize));
    Bind(wxEVT_CLOSE_WINDOW, &frmMain::OnClose, this);
}

#ifdef __WXMSW__
namespace
{

/// Whether the system can look for a letter's control from the focus on. From a panel, or from within
/// something hidden or disabled, it would search for ever.
bool IsOnAControl(HWND focus, HWND window)
{
    if (focus == nullptr || (::GetWindowLongW(focus, GWL_EXSTYLE) & WS_EX_CONTROLPARENT) != 0)
    {
        return false;
    }
    HWND at = focus;
    while (at != nullptr && at != window && ::IsWindowVisible(at) && ::IsWindowEnabled(at))
    {
        at = ::GetParent(at);
    }
    return at == window && focus != window;
}

} // namespace

bool frmMain::MSWTranslateMessage(WXMSG* message)
{
    // The toolkit looks for an underlined letter in the innermost panel around the focus only; here it
    // means any control that is seen.
    return wxFrame::MSWTranslateMessage(message) ||
           (message->message == WM_SYSCHAR && IsOnAControl(message->hwnd, GetHwnd()) &&
            ::IsDialogMessageW(GetHwnd(), message) != FALSE);
}
#endif

void frmMain::CreateMenus()
{
    auto* file = new wxMenu;
    // The key stands at the right of the entry; the window system itself acts on it.
    file->Append(wxID_EXIT, "E&xit\tAlt+F4");
    auto* help = new wxMenu;
    const int openLog = help->Append(wxID_ANY, "Open &Log File")->GetId();
    const int copyDetails = help->Append(wxID_ANY, "Copy &Details")->GetId();
    help->AppendSeparator();
    help->Append(wxID_ABOUT, "&About Update Manager...");
    auto* bar = new wxMenuBar;
    bar->Append(file, "&File");
    bar->Append(help, "&Help");
    SetMenuBar(bar);
    Bind(
        wxEVT_MENU, [this](wxCommandEvent&) { Close(); }, wxID_EXIT);
    Bind(
        wxEVT_MENU, [this](wxCommandEvent&) { ShowAbout(); }, wxID_ABOUT);
    Bind(
        wxEVT_MENU, [this](wxCommandEvent&) { OpenLogFile(); }, openLog);
    Bind(
        wxEVT_MENU, [this](wxCommandEvent&) { CopyDetails(); }, copyDetails);
}

void frmMain::CreateControls()
{
    auto* body = new wxPanel(this, wxID_ANY);
    auto* tabs = new wxNotebook(body, wxID_ANY);
    tabs->SetName("tbsMain");
    m_tabs = tabs;
    m_programs = new ProgramsPage(tabs, m_manager, m_windows, m_loop);
    tabs->AddPage(m_programs, kTabCaptions[0]);
    m_equipment = new EquipmentPage(tabs, m_manager, m_windows, m_loop);
    tabs->AddPage(m_equipment, kTabCaptions[1]);
    m_news = new NewsPage(
        tabs, m_manager,
        {[this] { SelectTab(kNewsTab); }, [this](const std::string& link) { ShowLink(link); },
         [this](const std::string& address) { m_manager.Addresses().Open(address); }});
    tabs->AddPage(m_news, kTabCaptions[2]);
    m_connect = new ConnectPanel(body, m_manager);
    auto* sizer = new wxBoxSizer(wxVERTICAL);
    sizer->Add(tabs, wxSizerFlags(1).Expand().Border(wxALL, FromDIP(6)));
    sizer->Add(m_connect, wxSizerFlags().Expand());
    body->SetSizer(sizer);
    auto* outer = new wxBoxSizer(wxVERTICAL);
    outer->Add(body, wxSizerFlags(1).Expand());
    SetSizer(outer);
    CreateStatusBar()->SetName("sbrMain");
    tabs->Bind(wxEVT_NOTEBOOK_PAGE_CHANGED, [this](wxBookCtrlEvent& event) {
        event.Skip();
        m_programs->ShowSelectedProgram();
    });
    SetUpAccelerators();
}

void frmMain::SetUpAccelerators()
{
    // Tab captions underline their letters but do not act on them. Alt+H is the Help menu's, so each
    // tab has its number as well.
    std::array<wxAcceleratorEntry, 7> entries;
    const std::array<int, 3> ids{wxWindow::NewControlId(), wxWindow::NewControlId(),
                                 wxWindow::NewControlId()};
    entries[0].Set(wxACCEL_ALT, 'A', ids[0]);
    entries[1].Set(wxACCEL_ALT, 'L', ids[2]);
    entries[2].Set(wxACCEL_CTRL, '1', ids[0]);
    entries[3].Set(wxACCEL_CTRL, '2', ids[1]);
    entries[4].Set(wxACCEL_CTRL, '3', ids[2]);
    entries[5].Set(wxACCEL_NORMAL, WXK_F5, wxID_REFRESH);
    entries[6].Set(wxACCEL_NORMAL, WXK_ESCAPE, wxID_STOP);
    SetAcceleratorTable(wxAcceleratorTable(static_cast<int>(entries.size()), entries.data()));
    for (std::size_t tab = 0; tab < ids.size(); ++tab)
    {
        Bind(
            wxEVT_MENU, [this, tab](wxCommandEvent&) { SelectTab(tab); }, ids[tab]);
    }
    Bind(
        wxEVT_MENU, [this](wxCommandEvent&) { m_manager.FetchLists(); }, wxID_REFRESH);
    Bind(
        wxEVT_MENU, [this](wxCommandEvent&) { m_manager.Lists().Cancel(); }, wxID_STOP);
}

void frmMain::SelectTab(std::size_t tab)
{
    m_tabs->SetSelection(tab);
}

void frmMain::Open(const std::string& commandLine)
{
    Show();
    SelectProgram(std::string(Trimmed(commandLine)));
    m_programs->FocusList();
    StartTimer(commandLine);
    if (StartupRequest(commandLine).databasesTab)
    {
        SelectTab(kEquipmentTab);
    }
}

void frmMain::OpenOnUpdates(const std::string& caller, bool databasesTab)
{
    Show();
    SelectProgram(caller);
    m_programs->FocusList();
    if (databasesTab)
    {
        SelectTab(kEquipmentTab);
    }
}

/// The first one when none has that name.
void frmMain::SelectProgram(const std::string& name)
{
    ListViewModel& list = m_manager.Programs().List();
    if (!list.Select(name) && !list.Rows().empty())
    {
        list.Select(std::string(list.Rows().front().key));
    }
    if (const ListRow* selected = list.SelectedRow())
    {
        list.ScrollTo(std::string(selected->key));
    }
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
    m_manager.RunAfterOpening(StartupRequest(commandLine), VersionNumbers(OwnInformation().version),
                              m_windows);
}

void frmMain::ShowAbout()
{
    frmAbout(this, OwnInformation()).ShowModal();
}

void frmMain::OpenLogFile()
{
    const std::string& path = m_manager.Log().Path();
    if (!platform::MFile::FileExists(path))
    {
        m_windows.Notify(PromptIcon::Information,
                         "There is no log file yet: nothing has gone wrong so far.", "Log File");
        return;
    }
    if (const auto opened = platform::OpenDocument(path); !opened)
    {
        m_manager.Log().Failure("Opening " + path, opened.Failure());
        m_windows.Notify(PromptIcon::Information, "The log file is " + path, "Log File");
    }
}

void frmMain::CopyDetails()
{
    const wxClipboardLocker clipboard;
    if (!clipboard)
    {
        m_manager.Log().Write("The clipboard is in use by another program");
        return;
    }
    wxTheClipboard->SetData(
        new wxTextDataObject(ToWx(m_manager.Details(OwnInformation().version))));
    wxTheClipboard->Flush();
    SetStatusText("The details are on the clipboard.");
}

void frmMain::ShowLink(const std::string& link)
{
    // Only when it differs, so that the text does not flicker.
    if (FromWx(GetStatusBar()->GetStatusText()) != link)
    {
        SetStatusText(ToWx(link));
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
    if (ListFiles::PointAtTestLists())
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

void frmMain::SaveState()
{
    m_manager.DeleteLists();
    CFormHandler(m_manager.Settings(), kMainWindowSection).Save(*this);
    const ListViewModel& list = m_manager.Programs().List();
    const CListViewHandler listHandler(m_manager.Settings());
    listHandler.SaveWidths(list, kProgramListSection);
    listHandler.SaveSort(list, kProgramListSection, list.SortedColumn());
    m_programs->SaveSplitter();
}

void frmMain::OnBusyChanged()
{
    m_connect->ShowBusy();
    m_programs->ShowSelectedProgram();
}

void frmMain::OnCountsChanged()
{
    m_connect->ShowCounts();
}

void frmMain::OnHeadlinesChanged()
{
    m_news->ShowHeadlines();
}

void frmMain::RedrawProgramList()
{
    m_programs->RedrawList();
}

} // namespace velmo
