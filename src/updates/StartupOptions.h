#pragma once

#include <cstdint>
#include <string_view>

namespace velmo
{

class CINIFileHandler;
class SettingsSnapshot;

/// What the update manager does when a program of the vendor starts: values of
/// "CheckForUpdateOnStartupOption".
namespace startup_option
{
inline constexpr std::int32_t kAsk = 0;
inline constexpr std::int32_t kCheck = 1;
inline constexpr std::int32_t kDoNotCheck = 2;
} // namespace startup_option

/// One program's start-up options, kept in the settings file's section of its display name.
struct StartupOptions
{
    std::int32_t option = startup_option::kCheck;
    bool notifyOfEquipment = false; ///< Check equipment databases and pictures too.
    bool canAsk = false;            ///< The program allows the choice to be asked.
};

/// Reads a program's options. A program that never allowed asking keeps the yes or no that older
/// versions stored, which is yes when they stored none.
[[nodiscard]] StartupOptions ReadStartupOptions(const SettingsSnapshot& settings,
                                                std::string_view section);

/// Writes what the options window decides; what the programs decide is left alone.
void WriteStartupOptions(CINIFileHandler& settings, std::string_view section,
                         bool notifyOfEquipment, std::int32_t option);

/// Whether the program is known to start the update manager, and the mark that it is.
[[nodiscard]] bool IsIntegrated(const SettingsSnapshot& settings, std::string_view section);
void MarkIntegrated(CINIFileHandler& settings, std::string_view section);

/// "Ask", "Yes" or "No".
[[nodiscard]] std::string_view StartupOptionText(std::int32_t option);

} // namespace velmo
