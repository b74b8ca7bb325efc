#include "tests/support/OtherWindow.h"

#include "platform/windows/WideText.h"

#include <windows.h>

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

HWND Require(HWND window, const std::string& what)
{
    return window != nullptr ? window : throw std::runtime_error("no " + what);
}

struct Search
{
    wchar_t mnemonic;
    HWND found;
};

BOOL CALLBACK LookAt(HWND control, LPARAM parameter)
{
    auto& search = *reinterpret_cast<Search*>(parameter);
    wchar_t kind[100] = L"";
    GetClassNameW(control, kind, 100);
    wchar_t text[100] = L"";
    GetWindowTextW(control, text, 100);
    const std::wstring_view caption(text);
    // A message box marks no letter of its "OK".
    const std::size_t mark = caption.find(L'&');
    if (kind == std::wstring_view(L"Button") && mark + 1 < caption.size() &&
        static_cast<wchar_t>(std::towlower(caption[mark + 1])) == search.mnemonic)
    {
        search.found = control;
    }
    return search.found == nullptr;
}

} // namespace

bool IsOnScreen(const std::string& title)
{
    return VisibleWindow(title) != nullptr;
}

void PressButton(const std::string& title, char mnemonic)
{
    Search search{static_cast<wchar_t>(mnemonic), nullptr};
    EnumChildWindows(Require(VisibleWindow(title), title), LookAt,
                     reinterpret_cast<LPARAM>(&search));
    PostMessageW(Require(search.found, std::string("button &") + mnemonic + " in " + title),
                 BM_CLICK, 0, 0);
}

void CloseByFrame(const std::string& title)
{
    PostMessageW(Require(VisibleWindow(title), title), WM_CLOSE, 0, 0);
}

void EndProgramOf(const std::string& title)
{
    DWORD id = 0;
    GetWindowThreadProcessId(VisibleWindow(title), &id);
    if (HANDLE process = id != 0 ? OpenProcess(PROCESS_TERMINATE, FALSE, id) : nullptr)
    {
        TerminateProcess(process, 1);
        CloseHandle(process);
    }
}

} // namespace velmo::test
