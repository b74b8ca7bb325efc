#pragma once

#include "companion/Commands.h"

#include <functional>
#include <iosfwd>

namespace CLI
{
class App;
}

/// The commands one by one. Each adds its arguments to the parser; what it returns is run when the
/// command was chosen.
namespace velmo::companion
{

/// Where a command writes.
struct Output
{
    std::ostream& out;
    std::ostream& errors;
};

using Action = std::function<ExitCode(Output)>;

/// "status": takes no arguments.
[[nodiscard]] Action SetUpStatus(CLI::App& command);

/// "equipment": takes no arguments.
[[nodiscard]] Action SetUpEquipment(CLI::App& command);

/// "inspect FILE...": one or more files; "inspect FILE TABLE FIELD": a field of an Access database.
[[nodiscard]] Action SetUpInspect(CLI::App& command);

} // namespace velmo::companion
