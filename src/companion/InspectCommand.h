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

/// "inspect FILE...": one or more files; "inspect FILE TABLE FIELD": a field of an Access database.
[[nodiscard]] std::function<ExitCode(Output)> SetUpInspect(CLI::App& command);

} // namespace velmo::companion
