#pragma once

#include <chrono>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

/**
    The sample vendor's equipment databases, as data: from it come the manufacturer list, the setups
    behind it and what of them is installed on a sample desktop. Always the same. Pure; any thread.
 */
namespace velmo::sample
{

struct EquipmentDatabase
{
    std::string manufacturer; ///< Empty: its section's name is the manufacturer's.
    std::string file;         ///< Name of the Access database; no two databases share one.
    std::chrono::year_month_day released;
    std::span<const std::string_view> kinds; ///< Keys of the kinds of equipment in it.
};

struct PictureGroup
{
    std::string setup;   ///< File name of its setup.
    std::string checker; ///< The picture whose file date stands for the group's.
    std::chrono::year_month_day modified;
    std::uint64_t setupSize = 0; ///< Bytes.
};

struct EquipmentSection
{
    std::string name;            ///< Also its picture folder's name.
    std::string setup;           ///< File name of the databases' setup.
    std::uint64_t setupSize = 0; ///< Bytes.
    std::optional<PictureGroup> pictures;
    std::vector<EquipmentDatabase> databases;
};

inline constexpr std::string_view kDatabaseFolder = "/pub/mervala/mdb/";
inline constexpr std::string_view kPictureFolder = "/pub/mervala/pic/";

/// All 60 sections with their 200 databases, in the list's order.
[[nodiscard]] std::vector<EquipmentSection> SampleEquipment();

/// The file `manufver.ini` of a server ("http://host:port") that offers these sections.
[[nodiscard]] std::string ManufacturerListText(std::span<const EquipmentSection> sections,
                                               std::string_view server);

} // namespace velmo::sample
