#pragma once

#include "platform/Result.h"

#include <windows.h>

#include <optional>
#include <string>
#include <string_view>

namespace velmo::platform
{

/// A text value of the registry, as UTF-8; nothing when it is absent or no text.
[[nodiscard]] std::optional<std::string> ReadRegistryText(HKEY root, const std::wstring& key,
                                                          std::string_view name);

/// Writes a text value and creates its key when needed.
[[nodiscard]] Result<Done> WriteRegistryText(HKEY root, const std::wstring& key,
                                             std::string_view name, std::string_view value);

} // namespace velmo::platform
