#pragma once

#include "controls/GridModel.h"

#include <array>
#include <string>
#include <string_view>

namespace velmo
{

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

/// One database of a section of the manufacturer list, with the section's group of pictures. The texts
/// are those of the equipment grid.
struct ManufacturerEntry
{
    std::string SectionName;
    std::string DatabaseSetupFile;
    std::string PictureSetupFile;  ///< Empty: the section has no pictures.
    std::string DatabaseSetupSize; ///< Bytes.
    std::string PictureSetupSize;  ///< Bytes.
    std::string ManufacturerName;
    std::string DatabaseFile;
    std::string DatabaseInstalledDate = "-"; ///< "-" = not installed, or not readable.
    std::string DatabaseLatestDate;
    std::string DatabaseNeedsUpdate = "-";   ///< "Yes", "No" or "-".
    std::string PicturesInstalledDate = "-"; ///< A date, "Unknown", or "-".
    std::string PicturesLatestDate = " ";    ///< " " = the list has none.
    std::string PicturesNeedUpdate = "-";    ///< "Yes", "No" or "-".
    std::array<std::string, kEquipmentKindKeys.size()> EquipmentKinds; ///< As the list has them.
    TickState InstallDatabase = TickState::Unticked;
    TickState InstallPictures = TickState::None; ///< None without pictures.
};

} // namespace velmo
