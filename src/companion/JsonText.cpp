#include "companion/JsonText.h"

#include <nlohmann/json.hpp>

namespace velmo::companion
{

std::string JsonText(const nlohmann::ordered_json& value)
{
    return value.dump(2, ' ', false, nlohmann::json::error_handler_t::replace) + "\n";
}

} // namespace velmo::companion
