#pragma once

#include "manager/FetchReport.h"

#include <string>
#include <string_view>

namespace velmo
{

/// What stands in a table without rows: why there are none, and what to do. @a what is its rows' name.
[[nodiscard]] inline std::string EmptyText(const FetchReport& report, std::string_view what)
{
    const std::string none = "There are no " + std::string(what) + " to show.\n\n";
    return report.stage == FetchStage::Running || report.stage == FetchStage::Waiting
               ? none + StatusBarText(report)
               : none + StatusBarText(report) +
                     ".\nPress Refresh Lists, or F5, to fetch the lists from the vendor's server.";
}

} // namespace velmo
