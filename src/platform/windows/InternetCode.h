#pragma once

#include <cstdint>

namespace velmo::platform
{

/// The internet's number in ErrorCode.h of what a WinINet call failed with: what differs from one Windows
/// to another comes under one number; what is not known stays as it is. Any thread.
[[nodiscard]] std::int32_t InternetCode(unsigned long given);

} // namespace velmo::platform
