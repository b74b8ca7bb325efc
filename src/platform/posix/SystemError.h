#pragma once

#include "platform/Result.h"

#include <filesystem>

namespace velmo::platform
{

/// The error that Windows gives for the same fault: errno @a number met while working on @a path.
[[nodiscard]] Error SystemError(int number, const std::filesystem::path& path);

} // namespace velmo::platform
