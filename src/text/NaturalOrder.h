#pragma once

#include <string_view>

namespace velmo
{

/// Compares as a person sorts: without regard to the case of letters A to Z, and runs of digits by
/// their value. Negative, zero or positive as for a - b.
[[nodiscard]] int CompareNaturally(std::string_view a, std::string_view b);

} // namespace velmo
