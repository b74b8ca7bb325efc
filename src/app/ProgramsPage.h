#pragma once

#include "controls/Observers.h"

#include <wx/panel.h>

class wxButton;
class wxMenu;

namespace velmo
{

class BrowserPane;
class CHorizontalSplitter;
class ListView;
class UpdateManager;
class UpdateWindows;
namespace platform
{
class MessageLoop;
}

/// The first tab, `picHoldPrograms`: the program list above the selected program's page, and the
/// buttons that act on the selected program.
class ProgramsPage final : public wxPanel
{
  public:
    /// References must outlive the page.
    ProgramsPage(wxWindow* parent, UpdateManager& manager, UpdateWindows& windows,
                 platform::MessageLoop& loop);

    /// Puts the splitter and the list's columns and order as they were remembered, else at their
    /// defaults.
    void RestoreState();
    void SaveState() const;

    /// Captions and states of the buttons for the selected program, and its page in the browser pane.
    void ShowSelectedProgram();

    /// Fills the pop-up menu `mnuInvisible` of the list: what the buttons do, with their captions.
    void FillMenu(wxMenu& menu);

    void FocusList();

    /// As a click on the header of a column, from 1.
    void SortBy(std::size_t column);

    /// Moves the bar between list and page down by so many lines, up by a negative number.
    void MoveBar(int lines);

  private:
    wxButton* AddButton(wxSizer& sizer, const wxString& name);
    void BindActions();
    void ShowMenu(wxPoint place);
    void NavigateSoon();
    void NavigateNow();

    UpdateManager& m_manager;
    UpdateWindows& m_windows;
    platform::MessageLoop& m_loop;
    CHorizontalSplitter* m_splitter = nullptr;
    ListView* m_list = nullptr;
    BrowserPane* m_browser = nullptr;
    wxButton* m_updateOptions = nullptr;
    wxButton* m_download = nullptr;
    wxButton* m_updatePage = nullptr;
    wxButton* m_informationPage = nullptr;
    int m_navigations = 0; ///< Asked for so far; only the latest is carried out.
    Observers::Subscription m_busy;
};

} // namespace velmo
