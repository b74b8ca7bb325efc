#pragma once

#include <wx/frame.h>

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
    /// Puts the menu bar and the keys on the frame. @a selectTab gets a tab's number, from 0.
    /// References must outlive the frame's events.
    MainMenu(wxFrame& frame, UpdateManager& manager, UserPrompts& prompts,
             std::function<void(std::size_t)> selectTab);
    MainMenu(const MainMenu&) = delete;
    MainMenu& operator=(const MainMenu&) = delete;

  private:
    void CreateMenus();
    void SetUpKeys(const std::function<void(std::size_t)>& selectTab);
    void Bind(int id, std::function<void()> action);
    void OpenLogFile();
    void CopyDetails();

    wxFrame& m_frame;
    UpdateManager& m_manager;
    UserPrompts& m_prompts;
};

} // namespace velmo
