#pragma once

namespace velmo::platform
{

/// The decimal mark of the user's locale: "." or "," (any other mark is taken as it is). Any thread.
[[nodiscard]] char DecimalMark();

} // namespace velmo::platform
