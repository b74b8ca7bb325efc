#include "ui/KeyLabel.h"

namespace velmo
{

void LeaveKeyToMenu(wxStaticText& /*label*/) {}

} // namespace velmo
