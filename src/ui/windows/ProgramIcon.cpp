#include "ui/ProgramIcon.h"

#include <wx/iconbndl.h>
#include <wx/toplevel.h>

namespace velmo
{

void ShowProgramIcon(wxTopLevelWindow& window)
{
    window.SetIcons(wxIconBundle("aaaa", nullptr));
}

} // namespace velmo
