#pragma once

#include "companion/Commands.h"
#include "companion/Output.h"

#include <string>

namespace velmo::companion
{

/// Whether the path's name or content says that it is an Access database.
[[nodiscard]] bool IsDatabaseFile(const std::string& path);

/// Prints the first record's field as text, an empty line for none. Failed, with a sentence: no such
/// table or field, no rows, a damaged or protected file.
[[nodiscard]] ExitCode InspectField(const std::string& path, const std::string& table,
                                    const std::string& field, Output output);

/// Prints what the equipment grid would say of the database as an installed one. Failed, with a
/// sentence, when that is "-".
[[nodiscard]] ExitCode InspectEquipmentDatabase(const std::string& path, Output output);

} // namespace velmo::companion
