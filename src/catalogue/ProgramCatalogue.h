#pragma once

#include "catalogue/ProgramTable.h"
#include "catalogue/VendorServer.h"

#include <cstdint>
#include <string>
#include <string_view>

/**
    What the program table answers. A program is named by its row's index or by its display name, which
    is also its section's name in `VelmoUpd.ini` and in the version list. Pure; any thread.
 */
namespace velmo
{

/// Names the equipment databases on the command line; no program, though its index follows theirs.
inline constexpr std::string_view kEquipmentName = "Manufacturer Databases";
inline constexpr std::int32_t kEquipmentNameIndex = kProgramCount;

/// Display name of an index, kEquipmentName for kEquipmentNameIndex; empty for any other.
[[nodiscard]] std::string_view NameOfIndex(std::int32_t index);

/// Index of a display name (exact, case-sensitive). A name that is no program's gives 0.
[[nodiscard]] std::int32_t IndexOfName(std::string_view displayName);

/// Whether the program list shows the row.
[[nodiscard]] bool IsListed(std::int32_t index);

/// Locator number of an index; kNoLocatorNumber when it has none or the index is no row's.
[[nodiscard]] std::int32_t LocatorNumberOfIndex(std::int32_t index);

/// Address of the product page; empty for a program without one and for an index that is no row's.
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
