#include "updates/StartupOptions.h"

#include "catalogue/ProgramCatalogue.h"
#include "settings/CINIFileHandler.h"

#include <stdexcept>
#include <string>

namespace velmo
{
namespace
{

constexpr std::string_view kOption = "CheckForUpdateOnStartupOption";
constexpr std::string_view kOlderOption = "CheckForUpdateOnStartup";
constexpr std::string_view kNotify = "NotifyOfHVACEquipmentUpdateOnStartup";
constexpr std::string_view kCanAsk = "CanAskAboutUpdating";
constexpr std::string_view kIntegrated = "CanCallCheckUpOnStartup";

std::int32_t ReadOption(const SettingsSnapshot& settings, std::string_view section)
{
    try
    {
        return settings.Long(section, kOption, startup_option::kAsk);
    }
    catch (const std::overflow_error&)
    {
        // Not one of the three choices, like any other unknown number.
        return startup_option::kDoNotCheck;
    }
}

} // namespace

StartupOptions ReadStartupOptions(const SettingsSnapshot& settings, std::string_view section)
{
    StartupOptions options;
    options.canAsk = settings.Boolean(section, kCanAsk, false);
    options.notifyOfEquipment =
        settings.Boolean(section, kNotify, NotifiesOfEquipmentByDefault(section));
    options.option = ReadOption(settings, section);
    if (!options.canAsk && options.option == startup_option::kAsk)
    {
        const bool check = settings.Boolean(section, kOlderOption, true);
        options.option = check ? startup_option::kCheck : startup_option::kDoNotCheck;
    }
    return options;
}

void WriteStartupOptions(CINIFileHandler& settings, std::string_view section,
                         bool notifyOfEquipment, std::int32_t option)
{
    settings.MyWriteAppProfileBoolean(section, kNotify, notifyOfEquipment);
    settings.MyWriteAppProfileString(section, kOption, std::to_string(option));
}

bool IsIntegrated(const SettingsSnapshot& settings, std::string_view section)
{
    return settings.Boolean(section, kIntegrated, false);
}

void MarkIntegrated(CINIFileHandler& settings, std::string_view section)
{
    settings.MyWriteAppProfileBoolean(section, kIntegrated, true);
}

std::string_view StartupOptionText(std::int32_t option)
{
    switch (option)
    {
    case startup_option::kAsk:
        return "Ask";
    case startup_option::kCheck:
        return "Yes";
    default:
        return "No";
    }
}

} // namespace velmo
