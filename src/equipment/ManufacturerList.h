#pragma once

#include "equipment/InstalledPictures.h"
#include "equipment/ManufacturerEntry.h"
#include "platform/Result.h"
#include "settings/CSectionDataCollection.h"

#include <cstddef>
#include <optional>
#include <string>

namespace velmo
{

class DiagnosticLog;

/// Where the setups of databases and pictures are downloaded from.
struct EquipmentServer
{
    std::string address; ///< Scheme and host.
    std::string databaseFolder;
    std::string pictureFolder;
};

/// The vendor's manufacturer list in memory: where the setups are, and the sections of equipment.
struct ManufacturerList
{
    EquipmentServer server;
    CSectionDataCollection sections;
};

/// What becomes of the values in the file that say where the setups are.
enum class ServerValues
{
    TakeOut, ///< Only sections of equipment stay in the file.
    Leave,   ///< The file is left alone, for another reader.
};

/**
    Reads the list from its file; a value that is missing has its default, the server's is
    @a defaultAddress. Errors: the file's (MFile.h), 223 when it is larger than 16 MiB.
 */
[[nodiscard]] Result<ManufacturerList> ReadManufacturerList(const std::string& path,
                                                            const std::string& defaultAddress,
                                                            ServerValues values,
                                                            DiagnosticLog& log);

/// The section's group of pictures, to be inspected in @a pictureRoot (ends in "\"); nothing when it
/// has none.
[[nodiscard]] std::optional<PictureGroup> ListedPictures(const CSectionData& section,
                                                         const std::string& pictureRoot);

/// The section's database of that number (from 1) with what the list says of it and of the section;
/// nothing when there is none of that number.
[[nodiscard]] std::optional<ManufacturerEntry> ListedDatabase(const CSectionData& section,
                                                              std::size_t number);

} // namespace velmo
