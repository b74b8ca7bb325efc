#pragma once

#include "ui/Dialog.h"

#include <array>
#include <cstdint>
#include <string>

class wxCheckBox;
class wxRadioButton;

namespace velmo
{

class CINIFileHandler;

/// What happens when one program starts: asked, checked or not, and whether equipment is checked. OK
/// writes the settings file; Cancel and Escape write nothing.
class frmUpdateOptions final : public Dialog
{
  public:
    /// @a settings must outlive the window.
    frmUpdateOptions(wxWindow* parent, CINIFileHandler& settings, std::string program);

  private:
    [[nodiscard]] wxSizer* NewChoices();
    void ShowOptions();
    void WriteOptions();

    CINIFileHandler& m_settings;
    std::string m_program;
    std::array<wxRadioButton*, 3> m_startup{}; ///< In the order of the options' values.
    wxCheckBox* m_notify = nullptr;
    std::int32_t m_stored = 0; ///< The option as it was read.
    std::size_t m_shown = 0;   ///< The choice that stands for it.
};

} // namespace velmo
