#pragma once

#include <string_view>

namespace velmo
{

/// Whether a name from a downloaded list means a file in the folder that it is put behind, and nothing
/// else, on every Windows: no separators, drive or stream colon, wild cards or control characters, no
/// dot or blank at its end, no name of a device ("nul", "com1.exe"). Pure; any thread.
[[nodiscard]] bool IsPlainFileName(std::string_view name);

} // namespace velmo
