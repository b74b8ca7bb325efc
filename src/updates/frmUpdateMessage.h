#pragma once

#include "updates/UpdatePrompts.h"

#include <wx/dialog.h>

#include <string>

class wxStaticText;

namespace velmo
{

class CINIFileHandler;
class MousePointer;

/// The question whether to see the list of updates. "Options" sets the caller's options and leaves
/// the question open; Escape is "No". Its place is remembered.
class frmUpdateMessage final : public wxDialog
{
  public:
    /// References must outlive the window.
    frmUpdateMessage(wxWindow* parent, CINIFileHandler& settings, MousePointer& pointer,
                     std::string caller, std::string question, std::string_view title);
    ~frmUpdateMessage() override;

    /// Shows the window until one of its buttons answers.
    [[nodiscard]] QuestionAnswer Ask();

  private:
    void CreateControls();
    void ShowQuestion();
    void SetOptions();

    CINIFileHandler& m_settings;
    MousePointer& m_pointer;
    std::string m_caller;
    std::string m_question;
    wxStaticText* m_instructions = nullptr;
};

} // namespace velmo
