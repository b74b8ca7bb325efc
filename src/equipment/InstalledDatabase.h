#pragma once

#include <chrono>
#include <string>
#include <string_view>

namespace velmo
{

class DiagnosticLog;

/// What the equipment grid says about one installed database.
struct InstalledDatabase
{
    std::string installedDate = "-"; ///< "-" = not installed, or its date cannot be read.
    std::string needsUpdate = "-";   ///< "Yes", "No", or "-" = cannot be decided.
};

/**
    Reads the field "ReleaseDate" of the first record of table "Header" from the Access file at
    @a path and compares it with the vendor's latest date. A field that is text is taken as it is,
    also when it is no date. A file that is there but gives no date (damaged, protected, without the
    table, the field or a value) leaves one line in the log. A missing file leaves none.
    The file is never locked or changed. One thread at a time.
 */
[[nodiscard]] InstalledDatabase InspectDatabase(const std::string& path,
                                                std::string_view latestDate,
                                                std::chrono::year thisYear, DiagnosticLog& log);

} // namespace velmo
