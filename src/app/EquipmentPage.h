#pragma once

#include "controls/Observers.h"
#include "equipment/EquipmentGrid.h"
#include "install/SetupWatch.h"

#include <wx/panel.h>

#include <array>
#include <string_view>
#include <vector>

class wxButton;
class wxMenu;
class wxStaticText;

namespace velmo
{

class Grid;
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

    /// Columns that a person may hide; the settings file remembers it.
    struct ColumnGroup
    {
        const char* caption; ///< Of its menu entry.
        std::string_view key;
        std::vector<EquipmentColumn> columns;
    };
    [[nodiscard]] static const std::array<ColumnGroup, 2>& ColumnGroups();
    void Show(const ColumnGroup& group, bool shown);
    [[nodiscard]] bool IsShown(const ColumnGroup& group) const;

    void FocusGrid();

  private:
    void ShowSummary();
    void ShowEmptyText();
    void ShowMarkMenu();
    void Install();

    UpdateManager& m_manager;
    UserPrompts& m_prompts;
    platform::MessageLoop& m_loop;
    SetupWatch
        m_setups; ///< Of the last installation: looks at the databases again when they ended.
    Grid* m_grid = nullptr;
    wxButton* m_markClear = nullptr;
    wxButton* m_install = nullptr;
    wxStaticText* m_summary = nullptr;
    Observers::Subscription m_report;
};

} // namespace velmo
