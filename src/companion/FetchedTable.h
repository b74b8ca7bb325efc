#pragma once

#include "companion/Commands.h"
#include "companion/Output.h"

#include <functional>
#include <string>

namespace velmo
{
struct UpdateCounts;
class UpdateManager;
} // namespace velmo

namespace velmo::companion
{

/// What a command tells once the vendor's lists have been fetched.
struct FetchedTable
{
    std::function<std::string(UpdateManager&)> text; ///< Also when they could not be fetched.
    std::function<bool(const UpdateCounts&)> needsUpdate;
};

/// Fetches the lists and prints the table; the exit code tells whether something needs an update.
[[nodiscard]] ExitCode PrintFetched(const FetchedTable& table, Output output);

} // namespace velmo::companion
