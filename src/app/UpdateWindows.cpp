#include "app/UpdateWindows.h"

#include "app/frmUpdateDialog.h"
#include "app/frmUpdateMessage.h"
#include "app/frmUpdateOptions.h"
#include "controls/MousePointer.h"
#include "manager/UpdateManager.h"

#include <wx/app.h>

#include <memory>

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
    frmUpdateMessage window(
        Parent(), m_manager.Settings(), question, kStartupQuestionTitle,
        [this, &request](wxWindow* parent) { SetOptions(parent, request.caller); });
    return window.ShowModal() == wxID_YES ? QuestionAnswer::Yes : QuestionAnswer::No;
}

DialogAnswer UpdateWindows::ShowUpdateDialog(const ProgramRow& program)
{
    frmUpdateDialog window(
        Parent(), program,
        {[this, &program] { m_manager.Actions().OpenUpdatePage(program.index); },
         [this, &program](wxWindow* parent) { SetOptions(parent, program.Name()); }});
    // It may come up while a fetch shows the busy pointer.
    m_pointer.SetShape(PointerShape::Normal);
    return window.ShowModal() == wxID_OK ? DialogAnswer::Download : DialogAnswer::Close;
}

void UpdateWindows::SetOptions(const std::string& program)
{
    SetOptions(Parent(), program);
}

void UpdateWindows::SetOptions(wxWindow* parent, const std::string& program)
{
    std::unique_ptr<frmUpdateOptions> window;
    {
        const CHourGlass busy(m_pointer);
        window = std::make_unique<frmUpdateOptions>(parent, m_manager.Settings(), program);
    }
    window->ShowModal();
    m_manager.Programs().RefreshStartupOption(program);
}

} // namespace velmo
