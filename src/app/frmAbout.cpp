#include "app/frmAbout.h"

#include "app/ProgramInformation.h"
#include "ui/ProgramIcon.h"
#include "ui/WxText.h"

#include <wx/button.h>
#include <wx/sizer.h>
#include <wx/stattext.h>

namespace velmo
{
namespace
{

constexpr int kTextWidth = 50; ///< In characters.

} // namespace

frmAbout::frmAbout(wxWindow* parent, const ProgramInformation& information)
    : wxDialog(parent, wxID_ANY, ToWx("About " + information.title), wxDefaultPosition,
               wxDefaultSize, wxDEFAULT_DIALOG_STYLE, "frmAbout")
{
    ShowProgramIcon(*this);
    auto* sizer = new wxBoxSizer(wxVERTICAL);
    const auto add = [this, sizer](const char* name, const std::string& text) {
        auto* label = new wxStaticText(this, wxID_ANY, wxControl::EscapeMnemonics(ToWx(text)));
        label->SetName(name);
        label->Wrap(kTextWidth * GetCharWidth());
        sizer->Add(label, wxSizerFlags().Border(wxLEFT | wxRIGHT | wxTOP, FromDIP(16)));
        return label;
    };
    auto* title = add("lblTitle", information.title);
    title->SetFont(title->GetFont().Bold().Larger());
    add("lblVersion", VersionLabel(information.version));
    add("lblDescription", information.description);
    add("lblCopyright", information.copyright);

    auto* ok = new wxButton(this, wxID_OK, "OK");
    ok->SetName("cmdOK");
    ok->SetDefault();
    ok->SetFocus();
    SetEscapeId(wxID_OK);
    sizer->Add(ok, wxSizerFlags().Right().Border(wxALL, FromDIP(16)));
    SetSizerAndFit(sizer);
    CentreOnParent();
}

} // namespace velmo
