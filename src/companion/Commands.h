#pragma once

#include <iosfwd>
#include <string>
#include <vector>

/**
    The console commands of velmoupdctl and velmolists. Each prints its result to the output and one
    sentence for a failure to the error output, both UTF-8.
 */
namespace velmo::companion
{

/// What the program's exit code says.
enum class ExitCode : int
{
    Fine = 0,              ///< Nothing needs an update; the command did what was asked.
    Failed = 1,            ///< What was asked for cannot be had; the error output says why.
    WrongUsage = 2,        ///< Unknown command or option.
    UpdatesAvailable = 3,  ///< At least one thing needs an update.
    FaultsFound = 4,       ///< Of what velmolists looked at, not all is as it should be.
    ServerUnreachable = 5, ///< The vendor's list could not be fetched, or what came is none.
};

/// Runs velmoupdctl's command that the arguments name, the program's name not among them.
[[nodiscard]] ExitCode Run(const std::vector<std::string>& arguments, std::ostream& output,
                           std::ostream& errors);

/// The same of velmolists.
[[nodiscard]] ExitCode RunLists(const std::vector<std::string>& arguments, std::ostream& output,
                                std::ostream& errors);

} // namespace velmo::companion
