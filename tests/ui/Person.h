#pragma once

#include "platform/MessageLoop.h"

#include <wx/window.h>

#include <functional>
#include <stdexcept>
#include <string>

/// What a person does with windows and sees of them, in tests.
namespace velmo::test
{

/// Lets the loop run until @a done; throws after 20 seconds.
void WaitFor(platform::MessageLoop& loop, const char* what, const std::function<bool()>& done);

/// Once the window of that name is shown, hands it to @a person. For windows that block their caller.
void WhenShown(platform::MessageLoop& loop, const char* name,
               std::function<void(wxWindow&)> person);

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

/// The text of a label, as if it stood on one line.
[[nodiscard]] std::string TextOf(const wxWindow& window, const char* name);

} // namespace velmo::test
