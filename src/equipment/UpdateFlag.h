#pragma once

#include <chrono>
#include <string>
#include <string_view>

namespace velmo
{

/// "Yes" or "No", as the equipment grid shows them.
[[nodiscard]] std::string YesOrNo(bool value);

/// "Yes" when the latest date is a day or more after the installed one, else "No"; "-" when either
/// text is no date (UnitedStatesDate.h). Times of day do not matter.
[[nodiscard]] std::string UpdateFlag(std::string_view installedDate, std::string_view latestDate,
                                     std::chrono::year thisYear);

} // namespace velmo
