#pragma once

#include "updates/UpdatePrompts.h"

#include <wx/dialog.h>

class wxSizer;
class wxStaticText;

namespace velmo
{

class CINIFileHandler;
class MousePointer;
class ProgramActions;

/// Tells of one program's update and offers its download. The update manager itself has neither
/// options nor an update page. Escape closes.
class frmUpdateDialog final : public wxDialog
{
  public:
    /// References must outlive the window.
    frmUpdateDialog(wxWindow* parent, CINIFileHandler& settings, ProgramActions& actions,
                    MousePointer& pointer, UpdateNotice notice);

    /// Shows the window until it is answered, with the normal pointer.
    [[nodiscard]] DialogAnswer Ask();

  private:
    void CreateControls();
    [[nodiscard]] wxSizer* MakeTexts();
    [[nodiscard]] wxSizer* MakeButtons();

    CINIFileHandler& m_settings;
    ProgramActions& m_actions;
    MousePointer& m_pointer;
    UpdateNotice m_notice;
    wxStaticText* m_instructions = nullptr;
};

} // namespace velmo
