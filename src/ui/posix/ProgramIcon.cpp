#include "ui/ProgramIcon.h"

#include "ui/ProgramIconBytes.h"

#include <wx/iconbndl.h>
#include <wx/imagbmp.h>
#include <wx/imagpng.h>
#include <wx/log.h>
#include <wx/mstream.h>
#include <wx/toplevel.h>

namespace velmo
{
namespace
{

wxIconBundle LoadIcons()
{
    wxImage::AddHandler(new wxICOHandler);
    wxImage::AddHandler(new wxPNGHandler); // The largest of them is one within.
    const wxLogNull silence;               // A window without an icon is one all the same.
    wxMemoryInputStream stream(kProgramIconBytes, sizeof kProgramIconBytes);
    return {stream, wxBITMAP_TYPE_ICO};
}

} // namespace

void ShowProgramIcon(wxTopLevelWindow& window)
{
    static const wxIconBundle icons = LoadIcons();
    window.SetIcons(icons);
}

} // namespace velmo
