#pragma once

#include <wx/window.h>

namespace velmo
{

/// A progress bar with its text in the middle, readable over the filled part and over the rest.
class ProgressPicture final : public wxWindow
{
  public:
    /// @a forReaders is its name for screen readers.
    ProgressPicture(wxWindow* parent, const wxString& name, const wxString& forReaders);

    /// @a filled is the filled part of the width, 0 to 1.
    void Set(double filled, const wxString& text);

    /// The text that is shown now.
    [[nodiscard]] const wxString& Text() const { return m_text; }

    [[nodiscard]] bool AcceptsFocus() const override { return false; }

  private:
    void OnPaint(wxPaintEvent& event);

    double m_filled = 0;
    wxString m_text;
};

} // namespace velmo
