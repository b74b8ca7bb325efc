#include "ui/ProgramIcon.h"

#include <wx/iconbndl.h>
#include <wx/toplevel.h>

namespace velmo
{

void ShowProgramIcon([[maybe_unused]] wxTopLevelWindow& window)
{
#ifdef __WXMSW__
    window.SetIcons(wxIconBundle("aaaa", nullptr));
#endif
}

} // namespace velmo
