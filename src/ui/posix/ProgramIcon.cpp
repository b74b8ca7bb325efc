#include "ui/ProgramIcon.h"

namespace velmo
{

void ShowProgramIcon(wxTopLevelWindow& /*window*/) {}

} // namespace velmo
