#pragma once

#include <wx/frame.h>

#include <string_view>

class wxPanel;

namespace velmo
{

/// The panels that grow with a frame are painted anew as a whole: some systems leave strips blank.
inline constexpr long kPanelStyle = wxTAB_TRAVERSAL | wxFULL_REPAINT_ON_RESIZE;

/**
    A hidden frame of a window class of its own, by which other programs and a second start of this one
    look for it; where windows have no classes it is the name of its application. The letter that a
    control underlines reaches it from anywhere in the frame's body. User-interface thread.
 */
class FrameOfClass : public wxFrame
{
  protected:
    /// @a name is the toolkit's name of the window; @a size is in device-independent pixels, at least
    /// @a characters of the frame's font, which a person may have enlarged.
    FrameOfClass(std::string_view windowClass, std::string_view caption, const wxString& name,
                 wxSize size, wxSize characters);

    /// What holds the frame's controls.
    [[nodiscard]] wxPanel& Body() { return *m_body; }

  private:
    void CreateOfClass(std::string_view windowClass, const wxString& caption, const wxString& name,
                       wxSize size);
    [[nodiscard]] wxPanel* NewBody();

    wxPanel* m_body = nullptr;
};

} // namespace velmo
