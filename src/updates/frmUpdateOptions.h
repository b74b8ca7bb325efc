#pragma once

#include <wx/dialog.h>

#include <array>
#include <string>

class wxCheckBox;
class wxRadioButton;

namespace velmo
{

class CINIFileHandler;
class MousePointer;

/// What happens when one program starts: asked, checked or not, and whether equipment is checked. OK
/// writes the settings file; Cancel and Escape write nothing.
class frmUpdateOptions final : public wxDialog
{
  public:
    /// @a settings must outlive the window.
    frmUpdateOptions(wxWindow* parent, CINIFileHandler& settings, std::string program);

  private:
    void CreateControls();
    void ShowOptions();
    void WriteOptions();

    CINIFileHandler& m_settings;
    std::string m_program;
    std::array<wxRadioButton*, 3> m_startup{}; ///< In the order of the options' values.
    wxCheckBox* m_notify = nullptr;
};

/// Shows the window for a program until it is closed, with the busy pointer while it loads.
void SetUpdateOptions(wxWindow* parent, CINIFileHandler& settings, MousePointer& pointer,
                      const std::string& program);

} // namespace velmo
