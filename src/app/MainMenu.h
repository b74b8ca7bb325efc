#pragma once

#include <wx/frame.h>
#include <wx/menu.h>

#include <cstddef>
#include <functional>

namespace velmo
{

class UpdateManager;
class UserPrompts;

/// The main window's menus and keys, and what they do. User-interface thread.
class MainMenu
{
  public:
    /// What the menus do in the window.
    struct Host
    {
        std::function<void(std::size_t)> selectTab;     ///< From 0.
        std::function<void(int)> turnTab;               ///< 1: the next one; -1: the one before.
        std::function<void(std::size_t)> focusContents; ///< Of a tab, from 0.
        std::function<void(int)> moveBar;               ///< By so many lines down.
        std::function<void(std::size_t)> sortPrograms;  ///< By a column, from 1.
    };

    /// Puts the menu bar and the keys on the frame. References must outlive the frame's events.
    MainMenu(wxFrame& frame, UpdateManager& manager, UserPrompts& prompts, Host host);
    MainMenu(const MainMenu&) = delete;
    MainMenu& operator=(const MainMenu&) = delete;

    /// Adds an entry that shows and hides something to the view menu.
    void AddToggle(const wxString& caption, bool shown, std::function<void(bool)> show);

  private:
    void CreateMenus();
    [[nodiscard]] wxMenu* NewViewMenu();
    void SetUpKeys();
    void Bind(int id, std::function<void()> action);
    void Add(wxMenu& menu, const wxString& caption, std::function<void()> action);
    void OpenLogFile();
    void CopyDetails();

    wxFrame& m_frame;
    UpdateManager& m_manager;
    UserPrompts& m_prompts;
    Host m_host;
    wxMenu* m_view = nullptr;
};

} // namespace velmo
