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

/// "equipment": no arguments.
[[nodiscard]] std::function<ExitCode(Output)> SetUpEquipment(CLI::App& command);

} // namespace velmo::companion
