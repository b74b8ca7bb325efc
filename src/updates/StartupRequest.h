#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace velmo
{

/// What the command line asks for. It is searched, never split into words: the other programs of the
/// vendor write it in more than one way.
struct StartupRequest
{
    /// Pure.
    explicit StartupRequest(std::string_view commandLine);

    std::string text;             ///< The whole command line without blanks at its ends.
    bool startupMode = false;     ///< "STARTUP" in any case: speak up only when there is an update.
    bool databasesTab = false;    ///< "Manufacturer Databases": open on the equipment tab.
    std::string caller;           ///< Display name of the program that started this; may be empty.
    std::int32_t callerIndex = 0; ///< Its row in the catalogue; 0 without a caller.

    /// Whether it names a program whose status the user waits for.
    [[nodiscard]] bool AsksForStatus() const;
};

} // namespace velmo
