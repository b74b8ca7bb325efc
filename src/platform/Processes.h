#pragma once

#include "platform/Result.h"

#include <string>
#include <string_view>

/// Other programs of the desktop. User-interface thread.
namespace velmo::platform
{

enum class WindowState
{
    Normal,
    Minimised, ///< Minimised, with the focus.
};

/// Starts a program by its full path (Windows path), without waiting for it. @a arguments is the rest
/// of its command line, handed over as it stands; no command interpreter sees it.
Result<Done> StartProgram(std::string_view path, std::string_view arguments, WindowState state);

/// Hands a web address to the desktop, which opens it in the user's browser, without waiting for it.
/// Never tried as a command line, whatever it is; which addresses may be opened is the caller's to
/// decide (WebAddress.h). Natively the program "xdg-open", looked up on the PATH.
Result<Done> OpenThroughShell(const std::string& address);

/// Brings the top-level window of that exact title to the front. False when there is none, and always
/// in the native build, where windows of other programs are not the desktop's.
bool ActivateWindow(std::string_view title);

} // namespace velmo::platform
