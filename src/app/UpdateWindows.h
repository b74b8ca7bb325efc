#pragma once

#include "updates/UpdatePrompts.h"

#include <string>

class wxWindow;

namespace velmo
{

class MousePointer;
class UpdateManager;

/// Asks with the windows of update checking. User-interface thread.
class UpdateWindows final : public UpdatePrompts
{
  public:
    /// @a prompts shows the message boxes. References must outlive the object.
    UpdateWindows(UpdateManager& manager, UserPrompts& prompts, MousePointer& pointer);

    void Notify(PromptIcon icon, const std::string& text, const std::string& title) override;
    QuestionAnswer AskToViewUpdates(const StartupRequest& request,
                                    const std::string& question) override;
    DialogAnswer ShowUpdateDialog(const ProgramRow& program) override;

    /// The options window of a program; its row in the program list shows what was chosen.
    void SetOptions(const std::string& program);

  private:
    void SetOptions(wxWindow* parent, const std::string& program);

    UpdateManager& m_manager;
    UserPrompts& m_prompts;
    MousePointer& m_pointer;
};

} // namespace velmo
