#include "updates/frmUpdateDialog.h"

#include "catalogue/ProgramCatalogue.h"
#include "controls/MousePointer.h"
#include "settings/CINIFileHandler.h"
#include "ui/ProgramIcon.h"
#include "ui/WxText.h"
#include "updates/ProgramActions.h"
#include "updates/frmUpdateOptions.h"

#include <wx/button.h>
#include <wx/sizer.h>
#include <wx/stattext.h>

#include <algorithm>
#include <utility>

namespace velmo
{
namespace
{

constexpr int kLeastTextWidth = 440;

wxStaticText* AddText(wxWindow* parent, const wxString& name, const wxString& text)
{
    auto* label = new wxStaticText(parent, wxID_ANY, text);
    if (!name.empty())
    {
        label->SetName(name);
    }
    return label;
}

} // namespace

frmUpdateDialog::frmUpdateDialog(wxWindow* parent, CINIFileHandler& settings,
                                 ProgramActions& actions, MousePointer& pointer,
                                 UpdateNotice notice)
    : wxDialog(parent, wxID_ANY, "Update Available", wxDefaultPosition, wxDefaultSize,
               wxDEFAULT_DIALOG_STYLE, "frmUpdateDialog"),
      m_settings(settings), m_actions(actions), m_pointer(pointer), m_notice(std::move(notice))
{
    ShowProgramIcon(*this);
    CreateControls();
}

void frmUpdateDialog::CreateControls()
{
    wxSizer* texts = MakeTexts();
    wxSizer* buttons = MakeButtons();
    auto* sizer = new wxBoxSizer(wxVERTICAL);
    sizer->Add(texts, wxSizerFlags(1).Expand().Border(wxALL, FromDIP(16)));
    sizer->Add(buttons, wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT | wxBOTTOM, FromDIP(16)));
    // The buttons, one of which bears the program's name, decide how wide the text may be.
    m_instructions->Wrap(std::max(FromDIP(kLeastTextWidth), buttons->CalcMin().x));
    SetSizerAndFit(sizer);
    CentreOnParent();
}

wxSizer* frmUpdateDialog::MakeTexts()
{
    auto* program = AddText(this, "lblProgram", ToWx(m_notice.program));
    program->SetFont(program->GetFont().Bold());
    auto* versions = new wxFlexGridSizer(2, FromDIP(wxSize(12, 4)));
    versions->Add(AddText(this, {}, "Installed version:"));
    versions->Add(AddText(this, "lblInstalledVersion", ToWx(m_notice.installedVersion)));
    versions->Add(AddText(this, {}, "Latest version:"));
    versions->Add(AddText(this, "lblLatestVersion", ToWx(m_notice.latestVersion)));
    m_instructions =
        AddText(this, "lblInstructions",
                ToWx("An update for " + m_notice.program +
                     " is available.  Click the Download Update button to download the setup file "
                     "for this update.  Be sure to close " +
                     m_notice.program + " before installing the update."));

    auto* texts = new wxBoxSizer(wxVERTICAL);
    texts->Add(program);
    texts->Add(versions, wxSizerFlags().Border(wxTOP | wxBOTTOM, FromDIP(8)));
    texts->Add(m_instructions, wxSizerFlags(1).Expand());
    return texts;
}

wxSizer* frmUpdateDialog::MakeButtons()
{
    auto* download = new wxButton(this, wxID_OK, "&Download Update");
    download->SetName("cmdDownload");
    auto* page = new wxButton(this, wxID_ANY, "&Go to Update Page");
    page->SetName("cmdGoToUpdatePage");
    auto* options = new wxButton(this, wxID_ANY, ToWx(m_notice.program + " Update Options..."));
    options->SetName("cmdUpdateOptions");
    auto* close = new wxButton(this, wxID_CANCEL, "&Close");
    close->SetName("cmdClose");

    const bool isOwn = m_notice.index == kOwnRow;
    page->Enable(!isOwn);
    options->Enable(!isOwn);
    page->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) { m_actions.OpenUpdatePage(m_notice.index); });
    options->Bind(wxEVT_BUTTON, [this](wxCommandEvent&) {
        SetUpdateOptions(this, m_settings, m_pointer, m_notice.program);
    });
    download->SetDefault();
    download->SetFocus();

    auto* buttons = new wxBoxSizer(wxHORIZONTAL);
    for (wxButton* button : {download, page, options})
    {
        buttons->Add(button, wxSizerFlags().Border(wxRIGHT));
    }
    buttons->AddStretchSpacer();
    buttons->Add(close);
    return buttons;
}

DialogAnswer frmUpdateDialog::Ask()
{
    // It may come up while a fetch shows the busy pointer.
    m_pointer.SetShape(PointerShape::Normal);
    return ShowModal() == wxID_OK ? DialogAnswer::Download : DialogAnswer::Close;
}

} // namespace velmo
