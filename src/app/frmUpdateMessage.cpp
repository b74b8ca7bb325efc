#include "app/frmUpdateMessage.h"

#include "settings/CINIFileHandler.h"

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
                                   const std::string& question, std::string_view title,
                                   std::function<void(wxWindow* parent)> setOptions)
    : Dialog(parent, std::string(title), "frmUpdateMessage"), m_place(settings, kSection)
{
    wxStaticText* instructions = NewText("lblInstructions", question);
    Wrap(*instructions, kTextWidth * GetCharWidth());
    wxButton* yes = NewButton(wxID_YES, "cmdYes", "&Yes");
    wxButton* no = NewButton(wxID_NO, "cmdNo", "&No");
    wxButton* options = NewButton(wxID_ANY, "cmdOptions", "&Options");
    options->Bind(wxEVT_BUTTON,
                  [this, set = std::move(setOptions)](const wxCommandEvent&) { set(this); });
    SetAffirmativeId(wxID_YES);
    SetEscapeId(wxID_NO);
    yes->SetDefault();
    yes->SetFocus();
    auto* content = new wxBoxSizer(wxVERTICAL);
    content->Add(instructions, wxSizerFlags(1).Expand());
    Arrange(content, {options}, {yes, no});
    m_place.RestorePosition(*this);
}

frmUpdateMessage::~frmUpdateMessage()
{
    m_place.Save(*this);
}

} // namespace velmo
