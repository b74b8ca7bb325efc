#pragma once

#include <string>

/// Windows that another program shows, found by their whole title and used as a person would.
namespace velmo::test
{

/// Whether a window of that title is on the screen.
[[nodiscard]] bool IsOnScreen(const std::string& title);

/// Presses the button of that mnemonic, a lower-case letter; 'o' for the OK of a message box.
void PressButton(const std::string& title, char mnemonic);

/// Closes the window by its frame.
void CloseByFrame(const std::string& title);

} // namespace velmo::test
