#pragma once

#include "platform/MessageLoop.h"

#include <wx/grid.h>
#include <wx/window.h>

#include <functional>
#include <stdexcept>
#include <string>

class wxMenu;

/// What a person does with windows and sees of them, in tests.
namespace velmo::test
{

/// Lets the loop run until @a done; throws after 20 seconds.
void WaitFor(platform::MessageLoop& loop, const char* what, const std::function<bool()>& done);

/// Does something as soon as a condition holds, for what goes on while a call blocks its caller.
void When(std::function<bool()> condition, std::function<void()> action);

/// Once the window of that name is shown, hands it to @a person. A dialog that is still open 20 seconds
/// after that is closed, and the test fails.
void WhenShown(const char* name, std::function<void(wxWindow&)> person);

/// The control of that name in a window; throws when there is none of that kind.
template <typename Control>
Control& Find(const wxWindow& window, const char* name)
{
    auto* control = dynamic_cast<Control*>(wxWindow::FindWindowByName(name, &window));
    if (control == nullptr)
    {
        throw std::runtime_error(std::string("no control ") + name);
    }
    return *control;
}

/// Presses an enabled button as its click does; on another one the test fails.
void Press(const wxWindow& window, const char* name);

/// Chooses the entry of that caption, with or without its underlining; without one the test fails.
void Choose(wxMenu& menu, const char* caption);

/// Presses the mouse in the middle of a cell.
void Click(wxGrid& grid, int row, int column);

/// Presses a key without modifiers in a control.
void PressKey(wxWindow& control, int key);

/// The text of a label, as if it stood on one line; of several, each with "|" behind it.
[[nodiscard]] std::string TextOf(const wxWindow& window, const char* name);
[[nodiscard]] std::string TextsOf(const wxWindow& window, std::initializer_list<const char*> names);

/// The entries of a menu, one a line, with what underlines them and their keys; a separator is "-", a
/// grey entry ends in " (grey)".
[[nodiscard]] std::string EntriesOf(const wxMenu& menu);

} // namespace velmo::test
