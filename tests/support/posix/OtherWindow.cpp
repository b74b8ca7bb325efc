#include "tests/support/OtherWindow.h"

#include <algorithm>
#include <cctype>
#include <cstdlib>
#include <stdexcept>

namespace velmo::test
{
namespace
{

// A key goes to the window that has the focus: sent to a window by name, the toolkit would ignore it.
constexpr char kKey[] = "windowactivate --sync %1 key --window 0 ";

/// Runs xdotool for the window of that title; false when there is none.
bool DoWith(const std::string& title, const std::string& action)
{
    std::string pattern = title;
    std::ranges::replace_if(
        pattern, [](unsigned char c) { return std::ispunct(c) != 0; }, '.');
    const std::string command = "xdotool search --onlyvisible --name '^" + pattern + "$' " + action;
    return std::system((command + " > /dev/null 2>&1").c_str()) == 0;
}

void MustDo(const std::string& title, const std::string& action)
{
    // A window that has just come may not take the focus yet.
    constexpr int kMostTries = 100;
    for (int i = 0; !DoWith(title, action); ++i)
    {
        if (i == kMostTries)
        {
            throw std::runtime_error(title + ": cannot " + action);
        }
    }
}

} // namespace

bool IsOnScreen(const std::string& title)
{
    return DoWith(title, "");
}

void PressButton(const std::string& title, char mnemonic)
{
    MustDo(title, kKey + std::string("alt+") + mnemonic);
}

void CloseByFrame(const std::string& title)
{
    MustDo(title, kKey + std::string("alt+F4"));
}

} // namespace velmo::test
