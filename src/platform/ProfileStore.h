#pragma once

#include "platform/Result.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

/**
    What PrivateProfile.h needs of the system: the same operations with the arguments checked before
    (a file is named, sizes are at least 2, no line breaks) and errors that say why.
 */
namespace velmo::platform::ProfileStore
{

[[nodiscard]] std::string ReadText(std::string_view section, std::string_view key,
                                   std::string_view defaultText, std::size_t bufferSize,
                                   std::string_view file);

[[nodiscard]] std::string ReadSection(std::string_view section, std::size_t bufferSize,
                                      std::string_view file);

[[nodiscard]] Result<Done> WriteText(std::string_view section, std::optional<std::string_view> key,
                                     std::optional<std::string_view> value, std::string_view file);

[[nodiscard]] Result<Done> WriteSection(std::string_view section, std::string_view block,
                                        std::string_view file);

} // namespace velmo::platform::ProfileStore
