#pragma once

#include <functional>

namespace velmo
{

/// Runs a program's whole work and gives its exit code. What nobody below has caught, running out of
/// memory above all, becomes a line in the log and on the error output, and the exit code @a failed.
[[nodiscard]] int RunGuarded(const std::function<int()>& work, int failed);

} // namespace velmo
