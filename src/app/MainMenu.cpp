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

MainMenu::MainMenu(wxFrame& frame, UpdateManager& manager, UserPrompts& prompts,
                   std::function<void(std::size_t)> selectTab)
    : m_frame(frame), m_manager(manager), m_prompts(prompts)
{
    CreateMenus();
    SetUpKeys(selectTab);
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
    bar->Append(help, "&Help");
    m_frame.SetMenuBar(bar);
    Bind(wxID_EXIT, [this] { m_frame.Close(); });
    Bind(openLog, [this] { OpenLogFile(); });
    Bind(copyDetails, [this] { CopyDetails(); });
    Bind(wxID_ABOUT, [this] { frmAbout(&m_frame, kOwnInformation).ShowModal(); });
}

void MainMenu::SetUpKeys(const std::function<void(std::size_t)>& selectTab)
{
    // Tab captions underline their letters but do not act on them. Alt+H is the Help menu's, so each
    // tab has its number as well.
    struct TabKeys
    {
        char letter; ///< With Alt; 0 for none.
        char number; ///< With Ctrl.
    };
    constexpr std::array kTabs{TabKeys{'A', '1'}, TabKeys{0, '2'}, TabKeys{'L', '3'}};
    std::vector<wxAcceleratorEntry> keys{{wxACCEL_NORMAL, WXK_F5, wxID_REFRESH},
                                         {wxACCEL_NORMAL, WXK_ESCAPE, wxID_STOP}};
    for (std::size_t tab = 0; tab < kTabs.size(); ++tab)
    {
        const int id = wxWindow::NewControlId();
        keys.emplace_back(wxACCEL_CTRL, kTabs[tab].number, id);
        if (kTabs[tab].letter != 0)
        {
            keys.emplace_back(wxACCEL_ALT, kTabs[tab].letter, id);
        }
        Bind(id, [selectTab, tab] { selectTab(tab); });
    }
    m_frame.SetAcceleratorTable(wxAcceleratorTable(static_cast<int>(keys.size()), keys.data()));
    Bind(wxID_REFRESH, [this] { m_manager.FetchLists(); });
    Bind(wxID_STOP, [this] { m_manager.Lists().Cancel(); });
}

void MainMenu::OpenLogFile()
{
    const std::string& path = m_manager.Log().Path();
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
    wxTheClipboard->SetData(
        new wxTextDataObject(ToWx(m_manager.Details(kOwnInformation.versionText))));
    wxTheClipboard->Flush();
    m_frame.SetStatusText("The details are on the clipboard.");
}

} // namespace velmo
