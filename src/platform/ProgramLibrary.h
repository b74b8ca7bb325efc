#pragma once

#include "platform/Result.h"

#include <string>

namespace velmo::platform
{

/// A function of a library of the program's own.
struct LibraryFunction
{
    void* address = nullptr;
    void* module = nullptr; ///< The loaded library, which on Windows holds resources.
};

/// Loads the library @a name ("VelmoUpdUi": the file "VelmoUpdUi.dll", natively "libVelmoUpdUi.so")
/// from the folder of the running executable, and from nowhere else, and finds @a function in it. The
/// library stays loaded until the program ends. Error 126 when it or a library that it needs cannot be
/// loaded, 127 when the function is missing; on Windows also the system's own for a damaged file (193).
/// User-interface thread.
[[nodiscard]] Result<LibraryFunction> LoadFromProgramFolder(const std::string& name,
                                                            const std::string& function);

/// Tells the person at the desktop of a failure without any library's help: a message box on Windows,
/// natively a line on the error output. Cannot fail.
void TellFailure(const std::string& title, const std::string& text);

} // namespace velmo::platform
