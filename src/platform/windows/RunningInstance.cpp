#include "platform/RunningInstance.h"

#include "platform/windows/WideText.h"

#include <windows.h>

#include <array>
#include <thread>
#include <utility>

namespace velmo::platform
{
namespace
{

struct Wanted
{
    std::wstring caption;
    std::wstring className;
};

bool Matches(HWND window, const Wanted& wanted)
{
    std::array<wchar_t, 256> text{};
    const int n = GetWindowTextW(window, text.data(), static_cast<int>(text.size()));
    if (std::wstring_view(text.data(), static_cast<std::size_t>(n)) != wanted.caption)
    {
        return false;
    }
    const int k = GetClassNameW(window, text.data(), static_cast<int>(text.size()));
    return std::wstring_view(text.data(), static_cast<std::size_t>(k)) == wanted.className;
}

/// The first top-level window, in the system's order, of that caption and class. Only visible ones:
/// a window that its program has not shown yet is not for others to show.
HWND FindTopLevel(const Wanted& wanted)
{
    HWND window = GetWindow(GetDesktopWindow(), GW_CHILD);
    while (window != nullptr && !(IsWindowVisible(window) && Matches(window, wanted)))
    {
        window = GetWindow(window, GW_HWNDNEXT);
    }
    return window;
}

/// The event by which the first instance is asked.
std::wstring RequestName(std::string_view name)
{
    return Wide(name) + L"-come-forward";
}

} // namespace

bool AskToComeForward(std::string_view name)
{
    HANDLE request = OpenEventW(EVENT_MODIFY_STATE, FALSE, RequestName(name).c_str());
    if (request == nullptr)
    {
        return false;
    }
    // This instance was started by the person and may let another take the focus.
    AllowSetForegroundWindow(ASFW_ANY);
    const bool asked = SetEvent(request) != FALSE;
    CloseHandle(request);
    return asked;
}

struct RunningInstance::State
{
    std::string name;
    HANDLE mutex = nullptr;
    bool hasPrevious = false;

    ~State()
    {
        if (mutex != nullptr)
        {
            CloseHandle(mutex);
        }
    }
};

RunningInstance::RunningInstance(std::string_view name) : m_state(std::make_unique<State>())
{
    m_state->name = name;
    m_state->mutex = CreateMutexW(nullptr, FALSE, Wide(name).c_str());
    const DWORD error = GetLastError();
    // An instance that runs as administrator may keep its mark to itself.
    m_state->hasPrevious = error == ERROR_ALREADY_EXISTS || error == ERROR_ACCESS_DENIED;
}

RunningInstance::~RunningInstance() = default;

bool RunningInstance::HasPrevious() const
{
    return m_state->hasPrevious;
}

bool RunningInstance::BringPreviousForward(std::string_view caption,
                                           std::string_view className) const
{
    HWND window = FindTopLevel({Wide(caption), Wide(className)});
    if (window == nullptr)
    {
        return AskToComeForward(m_state->name);
    }
    // With a dialog open, it is the dialog that takes the keys.
    SetForegroundWindow(GetLastActivePopup(window));
    WINDOWPLACEMENT placement{};
    placement.length = sizeof placement;
    if (GetWindowPlacement(window, &placement) && placement.showCmd == SW_SHOWMINIMIZED)
    {
        ShowWindow(window, SW_RESTORE);
        SetForegroundWindow(GetLastActivePopup(window));
    }
    return true;
}

struct InstanceListener::State
{
    State(HANDLE requestEvent, HANDLE stopEvent) : request(requestEvent), stop(stopEvent) {}
    State(const State&) = delete;
    State& operator=(const State&) = delete;
    ~State()
    {
        SetEvent(stop);
        if (thread.joinable())
        {
            thread.join();
        }
        CloseHandle(request);
        CloseHandle(stop);
    }

    HANDLE request;
    HANDLE stop;
    std::jthread thread;
};

InstanceListener::InstanceListener(std::string_view name, MessageLoop& loop,
                                   std::function<bool()> comeForward)
    : m_state(
          std::make_unique<State>(CreateEventW(nullptr, FALSE, FALSE, RequestName(name).c_str()),
                                  CreateEventW(nullptr, TRUE, FALSE, nullptr)))
{
    m_state->thread =
        std::jthread([state = m_state.get(), &loop, comeForward = std::move(comeForward)] {
            const std::array<HANDLE, 2> waiting{state->stop, state->request};
            while (WaitForMultipleObjects(static_cast<DWORD>(waiting.size()), waiting.data(), FALSE,
                                          INFINITE) == WAIT_OBJECT_0 + 1)
            {
                loop.Post([comeForward] { (void)comeForward(); });
            }
        });
}

InstanceListener::~InstanceListener() = default;

} // namespace velmo::platform
