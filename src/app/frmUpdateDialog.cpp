#include "app/frmUpdateDialog.h"

#include "catalogue/ProgramCatalogue.h"

#include <wx/button.h>
#include <wx/sizer.h>
#include <wx/stattext.h>

#include <algorithm>

namespace velmo
{
namespace
{

constexpr int kLeastTextWidth = 440;

} // namespace

frmUpdateDialog::frmUpdateDialog(wxWindow* parent, const ProgramRow& program,
                                 const Actions& actions)
    : Dialog(parent, "Update Available", "frmUpdateDialog")
{
    wxButton* download = NewButton(wxID_OK, "cmdDownload", "&Download Update");
    wxButton* page = NewButton(wxID_ANY, "cmdGoToUpdatePage", "&Go to Update Page");
    wxButton* options =
        NewButton(wxID_ANY, "cmdUpdateOptions", program.Name() + " Update Options...");
    wxButton* close = NewButton(wxID_CANCEL, "cmdClose", "&Close");
    const bool isOwn = program.index == kOwnRow;
    page->Enable(!isOwn);
    options->Enable(!isOwn);
    page->Bind(wxEVT_BUTTON, [open = actions.openUpdatePage](const wxCommandEvent&) { open(); });
    options->Bind(wxEVT_BUTTON,
                  [this, set = actions.setOptions](const wxCommandEvent&) { set(this); });
    download->SetDefault();
    download->SetFocus();

    // The buttons, one of which bears the program's name, decide how wide the text may be.
    int width = 0;
    for (const wxButton* button : {download, page, options, close})
    {
        width += button->GetBestSize().x;
    }
    Arrange(NewTexts(program, std::max(width, FromDIP(kLeastTextWidth))), {download, page, options},
            {close});
}

wxSizer* frmUpdateDialog::NewTexts(const ProgramRow& program, int width)
{
    wxStaticText* title = NewText("lblProgram", program.Name());
    title->SetFont(title->GetFont().Bold());
    auto* versions = new wxFlexGridSizer(2, FromDIP(wxSize(12, 4)));
    versions->Add(NewText("lblInstalled", "Installed version:"));
    versions->Add(
        NewText("lblInstalledVersion", CellText(program, ProgramColumn::InstalledVersion)));
    versions->Add(NewText("lblLatest", "Latest version:"));
    versions->Add(NewText("lblLatestVersion", CellText(program, ProgramColumn::LatestVersion)));
    wxStaticText* instructions =
        NewText("lblInstructions",
                "An update for " + program.Name() +
                    " is available.  Click the Download Update button to download the setup file "
                    "for this update.  Be sure to close " +
                    program.Name() + " before installing the update.");
    Wrap(*instructions, width);

    auto* texts = new wxBoxSizer(wxVERTICAL);
    texts->Add(title);
    texts->Add(versions, wxSizerFlags().Border(wxTOP | wxBOTTOM, FromDIP(8)));
    texts->Add(instructions, wxSizerFlags(1).Expand());
    return texts;
}

} // namespace velmo
