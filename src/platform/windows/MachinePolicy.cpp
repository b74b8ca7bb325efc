#include "platform/MachinePolicy.h"

#include "platform/windows/RegistryText.h"

namespace velmo::platform
{
namespace
{

constexpr const wchar_t* kKey = L"Software\\Policies\\Velmo Software\\Update Manager";

} // namespace

std::optional<std::string> ReadMachinePolicy(std::string_view name)
{
    auto value = ReadRegistryText(HKEY_LOCAL_MACHINE, kKey, name);
    return value && value->empty() ? std::nullopt : value;
}

Result<Done> WriteMachinePolicy(std::string_view name, std::string_view value)
{
    return WriteRegistryText(HKEY_LOCAL_MACHINE, kKey, name, value);
}

} // namespace velmo::platform
