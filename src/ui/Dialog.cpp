#include "ui/Dialog.h"

#include "ui/ProgramIcon.h"
#include "ui/WxText.h"

#include <wx/button.h>
#include <wx/sizer.h>
#include <wx/stattext.h>

namespace velmo
{
namespace
{

constexpr int kSpareWidth = 8; ///< Device-independent pixels.

} // namespace

Dialog::Dialog(wxWindow* parent, const std::string& title, const wxString& name, long style)
    : wxDialog(parent, wxID_ANY, ToWx(title), wxDefaultPosition, wxDefaultSize, style, name)
{
    ShowProgramIcon(*this);
}

wxStaticText* Dialog::NewText(const wxString& name, const std::string& text)
{
    auto* label = new wxStaticText(this, wxID_ANY, wxControl::EscapeMnemonics(ToWx(text)));
    label->SetName(name);
    return label;
}

wxButton* Dialog::NewButton(int id, const wxString& name, const std::string& caption)
{
    auto* button = new wxButton(this, id, ToWx(caption));
    button->SetName(name);
    return button;
}

void Dialog::Wrap(wxStaticText& text, int width)
{
    text.Wrap(width);
    // A line that is drawn wider than it was measured would lose its end.
    text.SetMinSize(text.GetBestSize() + text.FromDIP(wxSize(kSpareWidth, 0)));
}

void Dialog::Arrange(wxSizer* content, std::initializer_list<wxButton*> left,
                     std::initializer_list<wxButton*> right)
{
    auto* buttons = new wxBoxSizer(wxHORIZONTAL);
    const int gap = FromDIP(8);
    for (wxButton* button : left)
    {
        buttons->Add(button, wxSizerFlags().Border(wxRIGHT, gap));
    }
    buttons->AddStretchSpacer();
    for (wxButton* button : right)
    {
        buttons->Add(button, wxSizerFlags().Border(wxLEFT, gap));
    }
    auto* sizer = new wxBoxSizer(wxVERTICAL);
    sizer->Add(content, wxSizerFlags(1).Expand().Border(wxALL, BorderWidth()));
    sizer->Add(buttons, wxSizerFlags().Expand().Border(wxLEFT | wxRIGHT | wxBOTTOM, BorderWidth()));
    SetSizerAndFit(sizer);
    CentreOnParent();
}

} // namespace velmo
