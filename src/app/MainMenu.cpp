#include "app/MainMenu.h"

#include "app/BuildInformation.h"
#include "app/frmAbout.h"
#include "controls/UserPrompts.h"
#include "manager/UpdateManager.h"
#include "platform/MFile.h"
#include "platform/Processes.h"
#include "ui/WxText.h"

#include <wx/accel.h>
#include <wx/clipbrd.h>
#include <wx/menu.h>

#include <array>
#include <utility>
#include <vector>

namespace velmo
{

namespace
{

constexpr int kBarStep = 2; ///< Lines that one key press moves a bar.

} // namespace

MainMenu::MainMenu(wxFrame& frame, UpdateManager& manager, UserPrompts& prompts, Host host)
    : m_frame(frame), m_manager(manager), m_prompts(prompts), m_host(std::move(host))
{
    CreateMenus();
    SetUpKeys();
}

void MainMenu::Bind(int id, std::function<void()> action)
{
    m_frame.Bind(
        wxEVT_MENU, [action = std::move(action)](wxCommandEvent&) { action(); }, id);
}

void MainMenu::CreateMenus()
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
    bar->Append(NewViewMenu(), "&View");
    bar->Append(help, "&Help");
    m_frame.SetMenuBar(bar);
    Bind(wxID_EXIT, [this] { m_frame.Close(); });
    Bind(openLog, [this] { OpenLogFile(); });
    Bind(copyDetails, [this] { CopyDetails(); });
    Bind(wxID_ABOUT, [this] { frmAbout(&m_frame, kOwnInformation).ShowModal(); });
}

void MainMenu::Add(wxMenu& menu, const wxString& caption, std::function<void()> action)
{
    Bind(menu.Append(wxID_ANY, caption)->GetId(), std::move(action));
}

void MainMenu::AddToggle(const wxString& caption, bool shown, std::function<void(bool)> show)
{
    wxMenuItem* item = m_view->AppendCheckItem(wxID_ANY, caption);
    item->Check(shown);
    Bind(item->GetId(), [item, show = std::move(show)] { show(item->IsChecked()); });
}

wxMenu* MainMenu::NewViewMenu()
{
    m_view = new wxMenu;
    // Alt+H is the Help menu's, so each tab has its number as well as the letter in its caption.
    Add(*m_view, "&Programs\tCtrl+1", [this] { m_host.selectTab(0); });
    Add(*m_view, "HVAC &Equipment Databases\tCtrl+2", [this] { m_host.selectTab(1); });
    Add(*m_view, "&Latest News\tCtrl+3", [this] { m_host.selectTab(2); });
    Add(*m_view, "&Next Tab\tCtrl+PgDn", [this] { m_host.turnTab(1); });
    Add(*m_view, "Pre&vious Tab\tCtrl+PgUp", [this] { m_host.turnTab(-1); });
    m_view->AppendSeparator();
    Add(*m_view, "&Select a Program\tAlt+S", [this] { m_host.focusContents(0); });
    Add(*m_view, "&Tick Databases and Pictures\tAlt+T", [this] { m_host.focusContents(1); });
    Add(*m_view, "Read Hea&dlines\tAlt+N", [this] { m_host.focusContents(2); });
    auto* sort = new wxMenu;
    std::size_t number = 0;
    for (const ListColumn& column : m_manager.Programs().List().Columns())
    {
        ++number;
        Add(*sort, ToWx(column.title) + "\tAlt+" + std::to_string(number),
            [this, number] { m_host.sortPrograms(number); });
    }
    m_view->AppendSubMenu(sort, "S&ort Programs By");
    Add(*m_view, "Move Bar &Up\tCtrl+Shift+Up", [this] { m_host.moveBar(-kBarStep); });
    Add(*m_view, "&Move Bar Down\tCtrl+Shift+Down", [this] { m_host.moveBar(kBarStep); });
    m_view->AppendSeparator();
    m_view->Append(wxID_REFRESH, "&Refresh Lists\tF5");
    m_view->Append(wxID_STOP, "&Cancel\tEsc");
    m_view->AppendSeparator();
    Bind(wxID_REFRESH, [this] { m_manager.FetchLists(); });
    Bind(wxID_STOP, [this] { m_manager.Lists().Cancel(); });
    return m_view;
}

void MainMenu::SetUpKeys()
{
    // Keys that stand in no menu: the tabs' captions underline letters but do not act on them, and the
    // order of tabs is commonly walked by these.
    const std::array<std::pair<wxAcceleratorEntry, std::function<void()>>, 4> keys{{
        {{wxACCEL_ALT, 'A'}, [this] { m_host.selectTab(0); }},
        {{wxACCEL_ALT, 'L'}, [this] { m_host.selectTab(2); }},
        {{wxACCEL_CTRL, WXK_TAB}, [this] { m_host.turnTab(1); }},
        {{wxACCEL_CTRL | wxACCEL_SHIFT, WXK_TAB}, [this] { m_host.turnTab(-1); }},
    }};
    std::vector<wxAcceleratorEntry> entries{{wxACCEL_NORMAL, WXK_F5, wxID_REFRESH},
                                            {wxACCEL_NORMAL, WXK_ESCAPE, wxID_STOP}};
    for (const auto& [key, action] : keys)
    {
        const int id = wxWindow::NewControlId();
        entries.emplace_back(key.GetFlags(), key.GetKeyCode(), id);
        Bind(id, action);
    }
    m_frame.SetAcceleratorTable(
        wxAcceleratorTable(static_cast<int>(entries.size()), entries.data()));
}

void MainMenu::OpenLogFile()
{
    const std::string& path = m_manager.Log().Path();
    if (const auto whyOff = m_manager.Log().WhyOff())
    {
        m_prompts.Notify(PromptIcon::Information,
                         "The log file cannot be written, so that it does not tell everything: " +
                             whyOff->description + " (" + path + ")",
                         "Log File");
        return;
    }
    if (!platform::MFile::FileExists(path))
    {
        m_prompts.Notify(PromptIcon::Information,
                         "There is no log file yet: nothing has gone wrong so far.", "Log File");
        return;
    }
    if (const auto opened = platform::OpenDocument(path); !opened)
    {
        m_manager.Log().Failure("Opening " + path, opened.Failure());
        m_prompts.Notify(PromptIcon::Information, "The log file is " + path, "Log File");
    }
}

void MainMenu::CopyDetails()
{
    const wxClipboardLocker clipboard;
    if (!clipboard)
    {
        m_manager.Log().Write("The clipboard is in use by another program");
        return;
    }
    if (!wxTheClipboard->SetData(
            new wxTextDataObject(ToWx(m_manager.Details(kOwnInformation.versionText)))))
    {
        m_manager.Log().Write("The details could not be put on the clipboard");
        return;
    }
    wxTheClipboard->Flush();
    m_frame.SetStatusText("The details are on the clipboard.");
}

} // namespace velmo
