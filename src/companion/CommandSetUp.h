#pragma once

#include "companion/Commands.h"

#include <functional>
#include <iosfwd>
#include <span>
#include <string>
#include <vector>

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

/// One command: what it is called and says of itself, and how it is set up.
struct Command
{
    const char* name;
    const char* description;
    Action (*setUp)(CLI::App& command);
};

/// A program: its name, what it says of itself, and its commands.
struct Program
{
    const char* name;
    const char* description;
    std::span<const Command> commands;
};

/// Runs the command of the program that the arguments name.
[[nodiscard]] ExitCode RunCommand(const Program& program, const std::vector<std::string>& arguments,
                                  Output output);

/// "status": takes no arguments.
[[nodiscard]] Action SetUpStatus(CLI::App& command);

/// "equipment": takes no arguments.
[[nodiscard]] Action SetUpEquipment(CLI::App& command);

/// "inspect FILE...": one or more files; "inspect FILE TABLE FIELD": a field of an Access database.
[[nodiscard]] Action SetUpInspect(CLI::App& command);

/// "make SITE --serial N": the text to be signed.
[[nodiscard]] Action SetUpMake(CLI::App& command);

/// "verify FILE --key KEY": a file of signed lists.
[[nodiscard]] Action SetUpVerify(CLI::App& command);

/// "lint SITE": what clients would stumble over.
[[nodiscard]] Action SetUpLint(CLI::App& command);

} // namespace velmo::companion
