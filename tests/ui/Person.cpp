#include "tests/ui/Person.h"

#include <gtest/gtest.h>

#include <wx/button.h>

#include <chrono>
#include <utility>

namespace velmo::test
{

void WaitFor(platform::MessageLoop& loop, const char* what, const std::function<bool()>& done)
{
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    while (!done())
    {
        if (std::chrono::steady_clock::now() > end)
        {
            throw std::runtime_error(std::string("did not happen: ") + what);
        }
        loop.WaitAndYield(std::chrono::milliseconds(20));
    }
}

void WhenShown(platform::MessageLoop& loop, const char* name, std::function<void(wxWindow&)> person)
{
    loop.After(std::chrono::milliseconds(20), [&loop, name, person = std::move(person)] {
        wxWindow* window = wxWindow::FindWindowByName(name);
        if (window == nullptr || !window->IsShown())
        {
            WhenShown(loop, name, person);
            return;
        }
        person(*window);
    });
}

void Press(const wxWindow& window, const char* name)
{
    auto& button = Find<wxButton>(window, name);
    ASSERT_TRUE(button.IsEnabled()) << name;
    wxCommandEvent click(wxEVT_BUTTON, button.GetId());
    click.SetEventObject(&button);
    button.GetEventHandler()->ProcessEvent(click);
}

std::string TextOf(const wxWindow& window, const char* name)
{
    wxString text = wxControl::RemoveMnemonics(Find<wxControl>(window, name).GetLabel());
    // Wrapping puts line breaks in the place of blanks.
    text.Replace("\n", " ");
    return text.utf8_string();
}

} // namespace velmo::test
