#pragma once

#include <wx/dialog.h>

#include <initializer_list>
#include <string>

class wxButton;
class wxSizer;
class wxStaticText;

namespace velmo
{

/**
    What the program's dialogs have in common: the icon, one border round everything, texts that wrap,
    and a row of buttons at the foot. It stands in the middle of its parent, or of the screen.
    User-interface thread.
 */
class Dialog : public wxDialog
{
  protected:
    /// @a name is the toolkit's name of the window.
    Dialog(wxWindow* parent, const std::string& title, const wxString& name,
           long style = wxDEFAULT_DIALOG_STYLE);

    /// A text as it stands: an ampersand is one.
    wxStaticText* NewText(const wxString& name, const std::string& text);

    /// Its caption underlines the letter after an ampersand.
    wxButton* NewButton(int id, const wxString& name, const std::string& caption);

    /// Puts the text into lines of at most @a width pixels. Later texts want a Fit() after it.
    static void Wrap(wxStaticText& text, int width);

    /// The contents above the buttons, those of @a left at the left edge, the others at the right.
    /// Sizes the dialog to them; @a content grows with it.
    void Arrange(wxSizer* content, std::initializer_list<wxButton*> left,
                 std::initializer_list<wxButton*> right);

    /// The common border, in pixels.
    [[nodiscard]] int BorderWidth() const { return FromDIP(16); }
};

} // namespace velmo
