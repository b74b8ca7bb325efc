#include "app/UpdateWindows.h"

#include "manager/UpdateManager.h"
#include "updates/frmUpdateDialog.h"
#include "updates/frmUpdateMessage.h"
#include "updates/frmUpdateOptions.h"

#include <wx/app.h>

namespace velmo
{
namespace
{

/// What the windows stand over; nothing when only they are shown.
wxWindow* Parent()
{
    wxWindow* top = wxTheApp->GetTopWindow();
    return top != nullptr && top->IsShown() ? top : nullptr;
}

} // namespace

UpdateWindows::UpdateWindows(UpdateManager& manager, UserPrompts& prompts, MousePointer& pointer)
    : m_manager(manager), m_prompts(prompts), m_pointer(pointer)
{}

void UpdateWindows::Notify(PromptIcon icon, const std::string& text, const std::string& title)
{
    m_prompts.Notify(icon, text, title);
}

QuestionAnswer UpdateWindows::AskToViewUpdates(const StartupRequest& request,
                                               const std::string& question)
{
    return frmUpdateMessage(Parent(), m_manager.Settings(), m_pointer, request.caller, question,
                            kStartupQuestionTitle)
        .Ask();
}

DialogAnswer UpdateWindows::ShowUpdateDialog(const UpdateNotice& notice)
{
    return frmUpdateDialog(Parent(), m_manager.Settings(), m_manager.Actions(), m_pointer, notice)
        .Ask();
}

void UpdateWindows::SetOptions(const std::string& program)
{
    SetUpdateOptions(Parent(), m_manager.Settings(), m_pointer, program);
    m_manager.Programs().RefreshStartupOption(program);
}

} // namespace velmo
