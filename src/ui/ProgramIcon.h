#pragma once

class wxTopLevelWindow;

namespace velmo
{

/// Gives the window the program's icon: on Windows from the resources, natively nothing yet.
void ShowProgramIcon(wxTopLevelWindow& window);

} // namespace velmo
