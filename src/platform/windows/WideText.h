#pragma once

#include "platform/Result.h"

#include <string>
#include <string_view>

namespace velmo::platform
{

/// UTF-16 of UTF-8 text, for the Windows calls.
[[nodiscard]] std::wstring Wide(std::string_view text);

/// UTF-8 of UTF-16 text.
[[nodiscard]] std::string Narrow(std::wstring_view text);

/// The error of a Windows error code, with the system's own sentence.
[[nodiscard]] Error SystemError(unsigned long code);

/// The error of the last failed call on this thread.
[[nodiscard]] Error LastSystemError();

} // namespace velmo::platform
