#pragma once

#include <array>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace velmo
{

class DiagnosticLog;

/// The kinds of equipment that a database may hold: their keys in the manufacturer list.
inline constexpr std::array<std::string_view, 15> kEquipmentKindKeys{
    "AC",
    "HP",
    "GSHP",
    "FuelOilFurnace",
    "GasFurnace",
    "PropaneFurnace",
    "GasAndPropaneFurnace",
    "FuelOilBoiler",
    "GasBoiler",
    "PropaneBoiler",
    "GasAndPropaneBoiler",
    "2SpeedAC",
    "2SpeedGSHP",
    "2SpeedFurnace",
    "WaterHeater",
};

/// One database of a section, as the list has it. The views are of the list's text.
struct ManufacturerEntry
{
    std::string_view ManufacturerName; ///< The section's name where the list has none.
    std::string_view DatabaseFile;
    std::string_view DatabaseLatestDate;
    std::array<std::string_view, kEquipmentKindKeys.size()> EquipmentKinds;
};

/// What the list says of all databases of a section, and of its group of pictures.
struct ManufacturerSection
{
    std::string_view SectionName;
    std::string DatabaseSetupFile; ///< In lower case.
    std::string PictureSetupFile;  ///< In lower case; empty: the section has no pictures.
    double DatabaseSetupSize = 0;  ///< Bytes.
    double PictureSetupSize = 0;   ///< Bytes.
    std::string_view PicturesLatestDate;
    std::string_view DateCheckerPictureFile;
    std::vector<ManufacturerEntry> entries; ///< In the order of their numbers; may be empty.
};

/// The vendor's manufacturer list: where the setups are, and the sections of equipment in the list's
/// order. A value that is never changed; copies share its text. Any thread.
struct ManufacturerList
{
    std::string serverAddress; ///< Scheme and host.
    std::string databaseFolder;
    std::string pictureFolder;
    std::vector<ManufacturerSection> sections;
    std::shared_ptr<const std::string> text; ///< What all the views are of.
    std::vector<std::string> complaints;     ///< Why parts of it were left out.

    /// Whether it is a list at all, rather than what a server or a portal says in its place: it names a
    /// setup's place, a database or a group of pictures.
    bool isList = false;
};

/// The list that a file's bytes are. A value that is missing has its default, the server's is
/// @a defaultAddress. Repeated sections and keys count once, the first time. Left out, since no list of
/// the vendor's has them: lines of more than 1,024 characters, sections with a name of more than 255,
/// what follows after 20,000 sections or 100,000 databases. Time and memory are linear in the length.
[[nodiscard]] ManufacturerList ParseManufacturerList(std::string_view bytes,
                                                     std::string_view defaultAddress);

/// Takes the values that say where the setups are out of the list's file, so that only sections of
/// equipment stay there.
void TakeOutServerValues(const std::string& path, DiagnosticLog& log);

} // namespace velmo
