#pragma once

#include "companion/Commands.h"
#include "companion/Output.h"

#include <functional>

namespace CLI
{
class App;
}

namespace velmo::companion
{

/// "status": takes no arguments.
[[nodiscard]] std::function<ExitCode(Output)> SetUpStatus(CLI::App& command);

} // namespace velmo::companion
