#include "platform/MachinePolicy.h"

#include "platform/posix/SettingsFile.h"

namespace velmo::platform
{
namespace
{

constexpr const char* kFile = "policy.ini";
constexpr const char* kSection = "Policy";

} // namespace

std::optional<std::string> ReadMachinePolicy(std::string_view name)
{
    auto value = ReadSettingsFile(kFile, kSection, name);
    return value && value->empty() ? std::nullopt : value;
}

Result<Done> WriteMachinePolicy(std::string_view name, std::string_view value)
{
    return WriteSettingsFile(kFile, kSection, name, value);
}

} // namespace velmo::platform
