#include "app/ProgramsPage.h"

#include "app/UpdateWindows.h"
#include "app/WindowSettings.h"
#include "catalogue/ProgramCatalogue.h"
#include "manager/UpdateManager.h"
#include "platform/MessageLoop.h"
#include "ui/Accessible.h"
#include "ui/BrowserPane.h"
#include "ui/CHorizontalSplitter.h"
#include "ui/CListViewHandler.h"
#include "ui/FrameOfClass.h"
#include "ui/KeyLabel.h"
#include "ui/ListView.h"
#include "ui/WxText.h"

#include <wx/button.h>
#include <wx/menu.h>
#include <wx/sizer.h>
#include <wx/stattext.h>
#include <wx/weakref.h>

#include <array>
#include <cmath>
#include <optional>

namespace velmo
{
namespace
{

constexpr char kInstructions[] = "&Select a program from the list below, then click the Download "
                                 "button to download its update.";
constexpr char kEmptyPage[] = "The update page of the selected program is shown here.";

/// A run through the list with the arrow keys opens only the page where it stops.
constexpr std::chrono::milliseconds kSettleTime(300);

void ShowState(wxButton& button, const ButtonState& state)
{
    button.SetLabel(ToWx(state.caption));
    button.Enable(state.enabled);
}

} // namespace

ProgramsPage::ProgramsPage(wxWindow* parent, UpdateManager& manager, UpdateWindows& windows,
                           platform::MessageLoop& loop)
    : wxPanel(parent, wxID_ANY, wxDefaultPosition, wxDefaultSize, kPanelStyle), m_manager(manager),
      m_windows(windows), m_loop(loop)
{
    SetName("picHoldPrograms");
    auto* instructions = new wxStaticText(this, wxID_ANY, kInstructions);
    instructions->SetName("lblInstructions");
    LeaveKeyToMenu(*instructions);

    m_splitter = new CHorizontalSplitter(this, "fraSplitterProgram");
    m_list = new ListView(m_splitter, manager.Programs().List(),
                          [this](std::size_t column) { SortBy(column); });
    m_list->SetName("lvwMain");
    NameForReaders(*m_list, AccessibleRole::List, "Programs");
    m_list->OnSelection([this] { ShowSelectedProgram(); });
    m_browser =
        new BrowserPane(m_splitter, "webMain", kEmptyPage, [&manager](const std::string& address) {
            manager.Addresses().Open(address);
        });

    // Of one height whatever the captions are: what is above must not move under the pointer.
    auto* buttons = new wxGridSizer(2, wxSize(FromDIP(6), FromDIP(6)));
    m_updateOptions = AddButton(*buttons, "cmdSetStartupUpdateOptions");
    m_download = AddButton(*buttons, "cmdDownloadUpdate");
    m_updatePage = AddButton(*buttons, "cmdGoToUpdatePage");
    m_informationPage = AddButton(*buttons, "cmdGoToInfoPage");

    auto* sizer = new wxBoxSizer(wxVERTICAL);
    sizer->Add(instructions, wxSizerFlags().Expand().Border());
    sizer->Add(m_splitter, wxSizerFlags(1).Expand().Border(wxLEFT | wxRIGHT));
    sizer->Add(buttons, wxSizerFlags().Expand().Border());
    SetSizer(sizer);
    BindActions();
    m_busy = manager.Lists().BusyChanged().Add([this] { ShowSelectedProgram(); });
    ShowSelectedProgram();
}

void ProgramsPage::BindActions()
{
    // Without a selected program nothing is done: the menu's download can be chosen then, too.
    const auto bind = [this](wxButton* button, auto action) {
        button->Bind(wxEVT_BUTTON, [this, action](wxCommandEvent&) {
            if (const ProgramRow* row = m_manager.Programs().Selected())
            {
                action(ProgramRow(*row));
            }
        });
    };
    bind(m_updateOptions, [this](const ProgramRow& program) {
        m_windows.SetOptions(program.Name());
        ShowSelectedProgram();
    });
    bind(m_download, [this](const ProgramRow& program) { m_manager.Actions().Download(program); });
    bind(m_updatePage,
         [this](const ProgramRow& program) { m_manager.Actions().OpenUpdatePage(program.index); });
    bind(m_informationPage, [this](const ProgramRow& program) {
        m_manager.Actions().OpenInformationPage(program.index);
    });
    m_list->Bind(wxEVT_CONTEXT_MENU,
                 [this](const wxContextMenuEvent& event) { ShowMenu(event.GetPosition()); });
}

void ProgramsPage::ShowMenu(wxPoint place)
{
    wxMenu menu;
    FillMenu(menu);
    if (place != wxDefaultPosition)
    {
        m_list->PopupMenu(&menu);
        return;
    }
    // The keyboard's menu belongs to the selected row, wherever the mouse is.
    wxRect row;
    const long selected = m_list->GetNextItem(-1, wxLIST_NEXT_ALL, wxLIST_STATE_SELECTED);
    if (selected >= 0)
    {
        m_list->EnsureVisible(selected);
        m_list->GetItemRect(selected, row);
    }
    m_list->PopupMenu(&menu, row.GetBottomLeft());
}

void ProgramsPage::FillMenu(wxMenu& menu)
{
    struct Entry
    {
        wxButton* button; ///< Pressed by the entry, which bears its caption.
        bool copiesState; ///< The download can always be chosen from here.
    };
    const std::array entries{Entry{m_download, false}, Entry{m_updatePage, true},
                             Entry{m_informationPage, true}, Entry{m_updateOptions, true}};
    for (const Entry& entry : entries)
    {
        if (entry.button == m_updateOptions)
        {
            menu.AppendSeparator();
        }
        wxMenuItem* item = menu.Append(wxID_ANY, entry.button->GetLabel());
        item->Enable(!entry.copiesState || entry.button->IsEnabled());
        menu.Bind(
            wxEVT_MENU,
            [button = entry.button](wxCommandEvent&) {
                wxCommandEvent press(wxEVT_BUTTON, button->GetId());
                press.SetEventObject(button);
                button->ProcessWindowEvent(press);
            },
            item->GetId());
    }
}

wxButton* ProgramsPage::AddButton(wxSizer& sizer, const wxString& name)
{
    auto* button = new wxButton(this, wxID_ANY);
    button->SetName(name);
    sizer.Add(button, wxSizerFlags().Expand());
    return button;
}

void ProgramsPage::RestoreState()
{
    const CINIFileHandler& settings = m_manager.Settings();
    std::optional<double> top;
    const std::string stored =
        settings.MyGetAppProfileString(kMainWindowSection, kSliderTopKey, "");
    if (!stored.empty() &&
        stored != settings.MyGetAppProfileString(kMainWindowSection, kSliderDesignKey, ""))
    {
        top = settings.MyGetAppProfileSingle(kMainWindowSection, kSliderTopKey, 0);
    }
    m_splitter->Init(m_list, m_browser, top);
    ListViewModel& list = m_manager.Programs().List();
    const CListViewHandler handler(m_manager.Settings());
    handler.LoadWidths(list, kProgramListSection);
    handler.LoadSort(list, kProgramListSection);
    handler.SetHeaderStyle(list, true);
}

void ProgramsPage::SortBy(std::size_t column)
{
    CListViewHandler(m_manager.Settings()).ColumnClick(m_manager.Programs().List(), column);
}

void ProgramsPage::SaveState() const
{
    const ListViewModel& list = m_manager.Programs().List();
    const CListViewHandler handler(m_manager.Settings());
    handler.SaveWidths(list, kProgramListSection);
    handler.SaveSort(list, kProgramListSection, list.SortedColumn());
    if (const auto top = m_splitter->BarTop())
    {
        const std::string text = std::to_string(std::lround(*top));
        CINIFileHandler& settings = m_manager.Settings();
        settings.MyWriteAppProfileString(kMainWindowSection, kSliderTopKey, text);
        settings.MyWriteAppProfileString(kMainWindowSection, kSliderDesignKey,
                                         m_splitter->IsPut() ? "" : text);
    }
}

void ProgramsPage::ShowSelectedProgram()
{
    const ProgramButtons buttons = m_manager.Programs().Buttons();
    ShowState(*m_updateOptions, buttons.updateOptions);
    ShowState(*m_download, buttons.download);
    ShowState(*m_updatePage, buttons.updatePage);
    ShowState(*m_informationPage, buttons.informationPage);
    Layout();
    NavigateSoon();
}

void ProgramsPage::NavigateSoon()
{
    const int navigation = ++m_navigations;
    const wxWeakRef<ProgramsPage> page(this);
    m_loop.After(kSettleTime, [page, navigation] {
        if (page != nullptr && page->m_navigations == navigation)
        {
            page->NavigateNow();
        }
    });
}

void ProgramsPage::NavigateNow()
{
    const ProgramRow* selected = m_manager.Programs().Selected();
    if (selected == nullptr || !IsShownOnScreen())
    {
        return;
    }
    const std::string address =
        UpdatePageOfIndex(m_manager.Lists().Server(), selected->index) + "#updatetext";
    if (address != m_browser->Address())
    {
        m_browser->Navigate(address);
    }
    else
    {
        m_browser->Retry();
    }
}

void ProgramsPage::FocusList()
{
    m_list->SetFocus();
}

void ProgramsPage::MoveBar(int lines)
{
    m_splitter->MoveByLines(lines);
}

} // namespace velmo
