#pragma once

class wxTopLevelWindow;

namespace velmo
{

/// Gives the window the program's icon: on Windows from the resources, natively
/// from the same file in the program.
void ShowProgramIcon(wxTopLevelWindow& window);

} // namespace velmo
