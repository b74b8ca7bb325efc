#pragma once

#include <chrono>
#include <string>
#include <string_view>

/// Sample equipment databases: real Access files with the release date that is asked for. Pure; any
/// thread. A template that does not fit is a fault of the build and throws std::logic_error.
namespace velmo::sample
{

/// A database of that release date, in one of the formats of 2000 to 2007. The name decides which:
/// ".accdb" is of 2007, other names are of either older format.
[[nodiscard]] std::string EquipmentDatabaseFile(std::string_view name,
                                                std::chrono::year_month_day released);

/// A database in the format of 2010 that has its date as text, September 30, 2013.
[[nodiscard]] std::string TextDatedDatabaseFile();

} // namespace velmo::sample
