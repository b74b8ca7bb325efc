#include "updates/frmUpdateMessage.h"

#include "controls/MousePointer.h"
#include "settings/CINIFileHandler.h"
#include "ui/CFormHandler.h"
#include "ui/ProgramIcon.h"
#include "ui/WxText.h"
#include "updates/frmUpdateOptions.h"

#include <wx/button.h>
#include <wx/sizer.h>
#include <wx/stattext.h>

#include <utility>

namespace velmo
{
namespace
{

constexpr std::string_view kSection = "Update Message";
constexpr int kTextWidth = 60; ///< In characters.

} // namespace

frmUpdateMessage::frmUpdateMessage(wxWindow* parent, CINIFileHandler& settings,
                                   MousePointer& pointer, std::string caller, std::string question,
                                   std::string_view title)
    : wxDialog(parent, wxID_ANY, ToWx(title), wxDefaultPosition, wxDefaultSize,
               wxDEFAULT_DIALOG_STYLE, "frmUpdateMessage"),
      m_settings(settings), m_pointer(pointer), m_caller(std::move(caller)),
      m_question(std::move(question))
{
    ShowProgramIcon(*this);
    CreateControls();
    CFormHandler(m_settings, kSection).RestorePosition(*this);
}

frmUpdateMessage::~frmUpdateMessage()
{
    CFormHandler(m_settings, kSection).Save(*this);
}

void frmUpdateMessage::CreateControls()
{
    m_instructions = new wxStaticText(this, wxID_ANY, wxEmptyString);
    m_instructions->SetName("lblInstructions");
    auto* yes = new wxButton(this, wxID_YES, "&Yes");
    yes->SetName("cmdYes");
    auto* no = new wxButton(this, wxID_NO, "&No");
    no->SetName("cmdNo");
    auto* options = new wxButton(this, wxID_ANY, "&Options");
    options->SetName("cmdOptions");

    auto* buttons = new wxBoxSizer(wxHORIZONTAL);
    buttons->Add(options, wxSizerFlags());
    buttons->AddStretchSpacer();
    buttons->Add(yes, wxSizerFlags().Border(wxRIGHT));
    buttons->Add(no, wxSizerFlags());
    auto* sizer = new wxBoxSizer(wxVERTICAL);
    sizer->Add(m_instructions, wxSizerFlags(1).Expand().Border(wxALL, FromDIP(16)));
    sizer->Add(buttons, wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT | wxBOTTOM, FromDIP(16)));
    SetSizer(sizer);
    ShowQuestion();

    SetAffirmativeId(wxID_YES);
    SetEscapeId(wxID_NO);
    yes->SetDefault();
    yes->SetFocus();
    options->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { SetOptions(); });
}

void frmUpdateMessage::ShowQuestion()
{
    m_instructions->SetLabel(ToWx(m_question));
    m_instructions->Wrap(kTextWidth * GetCharWidth());
    GetSizer()->SetSizeHints(this);
}

void frmUpdateMessage::SetOptions()
{
    SetUpdateOptions(this, m_settings, m_pointer, m_caller);
    ShowQuestion();
}

QuestionAnswer frmUpdateMessage::Ask()
{
    return ShowModal() == wxID_YES ? QuestionAnswer::Yes : QuestionAnswer::No;
}

} // namespace velmo
