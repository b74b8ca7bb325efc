#pragma once

#include "install/SetupWatch.h"

#include <wx/panel.h>

class wxButton;
class wxMenu;
class wxStaticText;

namespace velmo
{

class UpdateManager;
class UserPrompts;
namespace platform
{
class MessageLoop;
}

/// The second tab: the equipment databases and picture groups with their boxes, the commands that
/// tick them, and the way to their installation.
class EquipmentPage final : public wxPanel
{
  public:
    /// References must outlive the page.
    EquipmentPage(wxWindow* parent, UpdateManager& manager, UserPrompts& prompts,
                  platform::MessageLoop& loop);
    ~EquipmentPage() override;

    /// Fills the menu `mnuMarkClearMain` of the mark button; its entries tick and clear the boxes.
    void FillMarkMenu(wxMenu& menu);

  private:
    void ShowSummary();
    void ShowMarkMenu();
    void Install();

    UpdateManager& m_manager;
    UserPrompts& m_prompts;
    platform::MessageLoop& m_loop;
    SetupWatch
        m_setups; ///< Of the last installation: looks at the databases again when they ended.
    wxButton* m_markClear = nullptr;
    wxButton* m_install = nullptr;
    wxStaticText* m_summary = nullptr;
};

} // namespace velmo
