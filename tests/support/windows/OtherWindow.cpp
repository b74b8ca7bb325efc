#include "tests/support/OtherWindow.h"

#include "platform/windows/WideText.h"

#include <windows.h>

#include <array>
#include <cwctype>
#include <stdexcept>

namespace velmo::test
{
namespace
{

HWND VisibleWindow(const std::string& title)
{
    HWND window = FindWindowW(nullptr, platform::Wide(title).c_str());
    return window != nullptr && IsWindowVisible(window) ? window : nullptr;
}

HWND Require(const std::string& title)
{
    HWND window = VisibleWindow(title);
    return window != nullptr ? window : throw std::runtime_error("no " + title);
}

/// Posts the click to a button of that mnemonic and ends the search. A message box marks no letter of its
/// "OK".
BOOL CALLBACK PressIfMarked(HWND control, LPARAM mnemonic)
{
    std::array<wchar_t, 100> kind{}, text{};
    GetClassNameW(control, kind.data(), 100);
    GetWindowTextW(control, text.data(), 100);
    const std::wstring caption = text.data();
    const bool isMarked =
        kind.data() == std::wstring(L"Button") &&
        std::towlower(caption.c_str()[caption.find(L'&') + 1]) == static_cast<wint_t>(mnemonic);
    return !isMarked || !PostMessageW(control, BM_CLICK, 0, 0);
}

} // namespace

bool IsOnScreen(const std::string& title)
{
    return VisibleWindow(title) != nullptr;
}

void PressButton(const std::string& title, char mnemonic)
{
    if (EnumChildWindows(Require(title), PressIfMarked, mnemonic))
    {
        throw std::runtime_error(std::string("no button &") + mnemonic + " in " + title);
    }
}

void CloseByFrame(const std::string& title)
{
    PostMessageW(Require(title), WM_CLOSE, 0, 0);
}

} // namespace velmo::test
