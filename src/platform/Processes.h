#pragma once

#include "platform/Result.h"

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

/// Other programs of the desktop. User-interface thread.
namespace velmo::platform
{

enum class WindowState
{
    Normal,
    Minimised, ///< Minimised, with the focus.
};

/// A program that StartProgram() started. It goes on when this object goes; copies mean the same one.
class StartedProgram
{
  public:
    struct State; ///< The system's part.
    explicit StartedProgram(std::shared_ptr<const State> state) : m_state(std::move(state)) {}

    /// Whether it still runs. Programs that it started in turn don't count.
    [[nodiscard]] bool IsRunning() const;

    /// What it ended with; nothing while it runs. A program that was killed natively gives -1.
    [[nodiscard]] std::optional<int> ExitCode() const;

  private:
    std::shared_ptr<const State> m_state;
};

/// Starts a program by its full path (Windows path), without waiting for it. @a arguments is the rest
/// of its command line, handed over as it stands; no command interpreter sees it. In the native build
/// a file that may not be executed becomes one that may, since Windows knows no such permission.
/// Errors are the system's: 2 or 3 missing, 5 refused, 8 or 31 no resources, on Windows also 193 for
/// what is no program and 740 for what an administrator must start.
Result<StartedProgram> StartProgram(std::string_view path, std::string_view arguments,
                                    WindowState state);

/// Hands a web address to the desktop, which opens it in the user's browser, without waiting for it.
/// Never tried as a command line, whatever it is; which addresses may be opened is the caller's to
/// decide (WebAddress.h). Natively the program "xdg-open", looked up on the PATH: error 2 or 3 when it is
/// missing, 87 for an address that would be one of its options. On Windows the shell's: 1155 when no
/// program is registered for it.
Result<Done> OpenThroughShell(const std::string& address);

/// Opens a file of the desktop (Windows path) with the program that the user has for it. Errors as in
/// OpenThroughShell(), and on Windows 2 or 3 for a file that is missing.
Result<Done> OpenDocument(std::string_view path);

/// Brings the top-level window of that exact title to the front. False when there is none, and always
/// in the native build, where windows of other programs are not the desktop's.
bool ActivateWindow(std::string_view title);

} // namespace velmo::platform
