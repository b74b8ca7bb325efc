#pragma once

#include "platform/Result.h"

#include <optional>
#include <string>
#include <string_view>

/**
    What the office's administrator rules for this machine; the user cannot write it. On Windows the
    local-machine registry key `Software\Policies\Velmo Software\Update Manager`, in the native build
    the section "Policy" of the file `policy.ini` in the desktop root. Any thread.
 */
namespace velmo::platform
{

/// The policy's text, or nothing when it is absent or empty.
[[nodiscard]] std::optional<std::string> ReadMachinePolicy(std::string_view name);

/// For set-up programs run by an administrator. Error 5 for anybody else.
Result<Done> WriteMachinePolicy(std::string_view name, std::string_view value);

} // namespace velmo::platform
