#include "app/frmAbout.h"

#include "app/ProgramInformation.h"

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
    : Dialog(parent, "About " + std::string(information.title), "frmAbout")
{
    auto* texts = new wxBoxSizer(wxVERTICAL);
    const auto add = [this, texts](const char* name, const std::string& text) {
        wxStaticText* label = NewText(name, text);
        Wrap(*label, kTextWidth * GetCharWidth());
        texts->Add(label, wxSizerFlags().Border(wxBOTTOM, FromDIP(10)));
        return label;
    };
    wxStaticText* title = add("lblTitle", information.title);
    title->SetFont(title->GetFont().Bold().Larger());
    add("lblVersion", "Version " + InstalledVersionText(information.version));
    add("lblDescription", information.description);
    add("lblCopyright", information.copyright);

    wxButton* ok = NewButton(wxID_OK, "cmdOK", "OK");
    ok->SetDefault();
    ok->SetFocus();
    SetEscapeId(wxID_OK);
    Arrange(texts, {}, {ok});
}

} // namespace velmo
