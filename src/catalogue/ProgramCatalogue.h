#pragma once

#include "catalogue/VendorServer.h"

#include <cstdint>
#include <string>
#include <string_view>

/**
    The vendor's programs, compiled in: one table of 34 rows in ProgramCatalogue.cpp, edited by the
    release engineer and checked when it is compiled. A program is named by its row's index (0 to 33)
    or by its display name, which is also its section's name in `VelmoUpd.ini` and in the version
    list. Pure; any thread.
 */
namespace velmo
{

inline constexpr std::int32_t kProgramCount = 34;

/// The update manager's own row.
inline constexpr std::int32_t kOwnRow = 31;

/// The row that the program list never shows: the previous generation of the row before it.
inline constexpr std::int32_t kUnlistedRow = 15;

/// Names the equipment databases on the command line; no program.
inline constexpr std::int32_t kEquipmentNameIndex = 34;

/// The locator number of a program that cannot be located on this computer.
inline constexpr std::int32_t kNoLocatorNumber = -1;

/// One row: paths are paths on the vendor's web server.
struct ProgramEntry
{
    std::int32_t index;
    std::string_view displayName;     ///< Name, one blank, major version.
    std::int32_t locatorNumber;       ///< kNoLocatorNumber when the locator does not know it.
    std::string_view informationPage; ///< Empty for the update manager's own row.
    std::string_view updatePage;      ///< Empty when the program has none.
    std::string_view demoSetup;       ///< Never empty.
    bool notifiesOfEquipment;         ///< Default of its option to check equipment at start-up.
};

/// Display name of an index 0 to 34 (34: "Manufacturer Databases"); empty for any other.
[[nodiscard]] std::string_view NameOfIndex(std::int32_t index);

/// Index of a display name (exact, case-sensitive). A name that is no program's gives 0.
[[nodiscard]] std::int32_t IndexOfName(std::string_view displayName);

/// Locator number of an index; kNoLocatorNumber when it has none or the index is no row's.
[[nodiscard]] std::int32_t LocatorNumberOfIndex(std::int32_t index);

/// Address of the product page; empty for the update manager and for an index that is no row's.
[[nodiscard]] std::string InformationPageOfIndex(const VendorServer& server, std::int32_t index);

/// Address of the page on the latest update, or of the text that says that there is none.
[[nodiscard]] std::string UpdatePageOfIndex(const VendorServer& server, std::int32_t index);

/// Address of the demo setup; empty for an index that is no row's.
[[nodiscard]] std::string DemoSetupOfIndex(const VendorServer& server, std::int32_t index);

/// Whether the program of that exact name checks equipment at start-up unless told otherwise.
[[nodiscard]] bool NotifiesOfEquipmentByDefault(std::string_view displayName);

/// The first row's name that occurs anywhere in the command line, in any case; empty when none does.
[[nodiscard]] std::string_view CallerOfCommandLine(std::string_view commandLine);

} // namespace velmo
