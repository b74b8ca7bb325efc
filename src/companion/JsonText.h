#pragma once

#include <nlohmann/json_fwd.hpp>

#include <string>

namespace velmo::companion
{

/// The value as people and programs read it, with a line feed at its end. What is no UTF-8 is shown
/// replaced.
[[nodiscard]] std::string JsonText(const nlohmann::ordered_json& value);

} // namespace velmo::companion
