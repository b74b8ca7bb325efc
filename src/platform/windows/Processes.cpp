#include "platform/Processes.h"

#include "platform/windows/WideText.h"

#include <windows.h>

#include <shellapi.h>

namespace velmo::platform
{

struct StartedProgram::State
{
    explicit State(HANDLE h) : process(h) {}
    State(const State&) = delete;
    State& operator=(const State&) = delete;
    ~State() { CloseHandle(process); }

    HANDLE process;
};

bool StartedProgram::IsRunning() const
{
    return WaitForSingleObject(m_state->process, 0) == WAIT_TIMEOUT;
}

std::optional<int> StartedProgram::ExitCode() const
{
    DWORD code = 0;
    if (IsRunning() || !GetExitCodeProcess(m_state->process, &code))
    {
        return std::nullopt;
    }
    return static_cast<int>(code);
}

Result<StartedProgram> StartProgram(std::string_view path, std::string_view arguments,
                                    WindowState state)
{
    const std::wstring program = Wide(path);
    std::wstring commandLine = L"\"" + program + L"\"";
    if (!arguments.empty())
    {
        commandLine += (arguments.starts_with(' ') ? L"" : L" ") + Wide(arguments);
    }
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESHOWWINDOW;
    startup.wShowWindow = state == WindowState::Minimised ? SW_SHOWMINIMIZED : SW_SHOWNORMAL;
    PROCESS_INFORMATION process{};
    if (!CreateProcessW(program.c_str(), commandLine.data(), nullptr, nullptr, FALSE, 0, nullptr,
                        nullptr, &startup, &process))
    {
        return LastSystemError();
    }
    CloseHandle(process.hThread);
    return StartedProgram(std::make_shared<const StartedProgram::State>(process.hProcess));
}

Result<Done> OpenThroughShell(const std::string& address)
{
    const std::wstring file = Wide(address);
    SHELLEXECUTEINFOW open{};
    open.cbSize = sizeof open;
    open.fMask = SEE_MASK_NOASYNC | SEE_MASK_FLAG_NO_UI;
    open.lpVerb = L"open";
    open.lpFile = file.c_str();
    open.nShow = SW_SHOWNORMAL;
    if (!ShellExecuteExW(&open))
    {
        return LastSystemError();
    }
    return Done{};
}

bool ActivateWindow(std::string_view title)
{
    HWND window = FindWindowW(nullptr, Wide(title).c_str());
    if (window == nullptr)
    {
        return false;
    }
    if (IsIconic(window))
    {
        ShowWindow(window, SW_RESTORE);
    }
    // The system may refuse the focus and blink the window's button instead: the program runs.
    SetForegroundWindow(window);
    return true;
}

Result<Done> OpenDocument(std::string_view path)
{
    return OpenThroughShell(std::string(path));
}

} // namespace velmo::platform
