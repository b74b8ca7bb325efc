#pragma once

#include "app/MainMenu.h"
#include "manager/UpdateManager.h"
#include "ui/CFormHandler.h"
#include "ui/FrameOfClass.h"
#include "ui/OpenDialogs.h"

#include <string>

class wxBookCtrlBase;

namespace velmo
{

class ConnectPanel;
class EquipmentPage;
class NewsPage;
class ProgramsPage;
class UpdateWindows;
namespace platform
{
class MessageLoop;
}

/// The main window: the tabs, the status box with the connect controls, and the counts.
/// Loaded hidden; Open() shows it.
class frmMain final : public FrameOfClass
{
  public:
    /// Loads the window in its order. References must outlive it.
    frmMain(UpdateManager& manager, UpdateWindows& windows, platform::MessageLoop& loop);

    /// Shows the window, selects the program that the command line names (else the first), and
    /// starts the timer that connects.
    void Open(const std::string& commandLine);

    /// Shows the window to somebody who wants to see what a start-up run found for @a caller; with
    /// @a databasesTab on the equipment tab. The lists are there: no timer connects.
    void OpenOnUpdates(const std::string& caller, bool databasesTab);

    /// What closing does before the window goes; for a session that ends without closing it.
    void SaveState();

    /// Brings the window to the front, restored when it is minimised. False when it is not shown.
    bool ComeForward();

  private:
    [[nodiscard]] MainMenu::Host MenuHost();
    void FocusContents(std::size_t tab);
    void CreateControls();
    void RestoreState();
    void SelectProgram(const std::string& name);
    [[nodiscard]] bool IsBlocked() const;
    void OnClose(wxCloseEvent& event);
    void StartTimer(const std::string& commandLine);
    void OnTimer(const std::string& commandLine);
    void ShowLink(const std::string& link);
    void ShowStatus();
    void GoToFirst(UpdateKind kind);

    UpdateManager& m_manager;
    UpdateWindows& m_windows;
    platform::MessageLoop& m_loop;
    MainMenu m_menu;
    CFormHandler m_place;
    wxBookCtrlBase* m_tabs = nullptr;
    ProgramsPage* m_programs = nullptr;
    EquipmentPage* m_equipment = nullptr;
    NewsPage* m_news = nullptr;
    ConnectPanel* m_connect = nullptr;
    std::string m_link; ///< Under the mouse.
    Observers::Subscription m_report;
    OpenDialogs m_dialogs;
};

} // namespace velmo
