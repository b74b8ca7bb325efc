#include "companion/Commands.h"

#include "companion/CommandSetUp.h"

#include <CLI/CLI.hpp>

#include <array>
#include <ostream>

namespace velmo::companion
{
namespace
{

constexpr std::array kCommands{
    Command{"status",
            "Fetch the vendor's lists and print each program with its status. Exit code 0: nothing "
            "needs an update, 3: something does, 5: the list could not be had.",
            SetUpStatus},
    Command{"equipment",
            "Fetch the vendor's lists and print each equipment database and picture group with its "
            "status. Exit codes as for status.",
            SetUpEquipment},
    Command{"inspect",
            "Print every property of a file's version resource; of an Access database its release "
            "date, or with a table and a field the first record's value of it.",
            SetUpInspect},
};

} // namespace

ExitCode RunCommand(const Program& program, const std::vector<std::string>& arguments,
                    Output output)
{
    CLI::App app(program.description, program.name);
    app.require_subcommand(1);
    Action chosen;
    for (const Command& command : program.commands)
    {
        CLI::App* sub = app.add_subcommand(command.name, command.description);
        sub->callback([&chosen, action = command.setUp(*sub)] { chosen = action; });
    }
    try
    {
        // The parser takes them last first.
        app.parse(std::vector<std::string>(arguments.rbegin(), arguments.rend()));
    }
    catch (const CLI::ParseError& error)
    {
        // Asking for help ends the parsing too, but is no failure.
        return app.exit(error, output.out, output.errors) == 0 ? ExitCode::Fine
                                                               : ExitCode::WrongUsage;
    }
    return chosen(output);
}

ExitCode Run(const std::vector<std::string>& arguments, std::ostream& output, std::ostream& errors)
{
    return RunCommand(
        {"velmoupdctl", "Velmo Software Update Manager without its windows", kCommands}, arguments,
        {output, errors});
}

} // namespace velmo::companion
