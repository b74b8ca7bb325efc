#include "tests/ui/Person.h"

#include "ui/WxMessageLoop.h"

#include <gtest/gtest.h>

#include <wx/button.h>
#include <wx/dialog.h>
#include <wx/menu.h>
#include <wx/weakref.h>

#include <chrono>
#include <utility>

namespace velmo::test
{
namespace
{

using namespace std::chrono_literals;

constexpr auto kLongest = 20s;

/// The person's own time, which a window under test does not hold.
void After(std::chrono::milliseconds delay, std::function<void()> work)
{
    static WxMessageLoop* const loop = new WxMessageLoop; // The toolkit may be gone before statics.
    loop->After(delay, std::move(work));
}

void CloseLater(wxWindow& window)
{
    const wxWeakRef<wxDialog> dialog(dynamic_cast<wxDialog*>(&window));
    After(kLongest, [dialog] {
        if (dialog != nullptr && dialog->IsModal())
        {
            ADD_FAILURE() << dialog->GetName() << " was left open";
            dialog->EndModal(wxID_CANCEL);
        }
    });
}

} // namespace

void WaitFor(platform::MessageLoop& loop, const char* what, const std::function<bool()>& done)
{
    const auto end = std::chrono::steady_clock::now() + kLongest;
    while (!done())
    {
        if (std::chrono::steady_clock::now() > end)
        {
            throw std::runtime_error(std::string("did not happen: ") + what);
        }
        loop.WaitAndYield(20ms);
    }
}

void When(std::function<bool()> condition, std::function<void()> action)
{
    After(10ms, [condition = std::move(condition), action = std::move(action)] {
        condition() ? action() : When(condition, action);
    });
}

void WhenShown(const char* name, std::function<void(wxWindow&)> person)
{
    const auto shown = [name] {
        const wxWindow* window = wxWindow::FindWindowByName(name);
        return window != nullptr && window->IsShown();
    };
    When(shown, [name, person = std::move(person)] {
        wxWindow& window = *wxWindow::FindWindowByName(name);
        CloseLater(window);
        person(window);
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

void Choose(wxMenu& menu, const char* caption)
{
    const int id = menu.FindItem(caption);
    ASSERT_NE(id, wxNOT_FOUND) << caption;
    wxCommandEvent choice(wxEVT_MENU, id);
    wxWindow* window = menu.GetWindow();
    wxEvtHandler& handler = window != nullptr ? *window->GetEventHandler() : menu;
    handler.ProcessEvent(choice);
}

void Click(wxGrid& grid, int row, int column)
{
    const wxRect cell = grid.CellToRect(row, column);
    wxMouseEvent click(wxEVT_LEFT_DOWN);
    click.SetEventObject(grid.GetGridWindow());
    click.SetPosition(
        grid.CalcScrolledPosition(cell.GetPosition() + wxPoint(cell.width / 2, cell.height / 2)));
    grid.GetGridWindow()->GetEventHandler()->ProcessEvent(click);
    click.SetEventType(wxEVT_LEFT_UP);
    grid.GetGridWindow()->GetEventHandler()->ProcessEvent(click);
}

void PressKey(wxWindow& control, int key)
{
    wxKeyEvent press(wxEVT_KEY_DOWN);
    press.m_keyCode = key;
    press.SetEventObject(&control);
    control.GetEventHandler()->ProcessEvent(press);
}

std::string TextOf(const wxWindow& window, const char* name)
{
    wxString text = wxControl::RemoveMnemonics(Find<wxControl>(window, name).GetLabel());
    // Wrapping puts line breaks in the place of blanks.
    text.Replace("\n", " ");
    return text.utf8_string();
}

std::string TextsOf(const wxWindow& window, std::initializer_list<const char*> names)
{
    std::string texts;
    for (const char* name : names)
    {
        texts += TextOf(window, name) + "|";
    }
    return texts;
}

std::string EntriesOf(const wxMenu& menu)
{
    std::string entries;
    for (const wxMenuItem* item : menu.GetMenuItems())
    {
        entries += item->IsSeparator() ? "-" : item->GetItemLabel().utf8_string();
        entries += !item->IsSeparator() && !item->IsEnabled() ? " (grey)\n" : "\n";
    }
    return entries;
}

} // namespace velmo::test
