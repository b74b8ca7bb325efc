#pragma once

#include "controls/GridModel.h"
#include "equipment/InstalledVersion.h"
#include "equipment/ManufacturerList.h"

#include <cstdint>
#include <memory>
#include <vector>

namespace velmo
{

/// One database of the manufacturer list: all that is known and decided of it. The texts that people
/// see are made by EquipmentGrid::Text() alone, and never read back.
struct EquipmentRow
{
    std::size_t section = 0; ///< Its place among EquipmentRows::sections.
    const ManufacturerEntry* listed = nullptr;
    InstalledVersion installed;
    TickState InstallDatabase = TickState::Unticked;
    TickState InstallPictures = TickState::None; ///< None without pictures.
};

/// A section that has rows, with what its rows share.
struct EquipmentSection
{
    const ManufacturerSection* listed = nullptr;
    InstalledVersion pictures;
    GridSpan rows;
};

/// The list with what of it is installed. A plain value; the rows point into the list.
struct EquipmentRows
{
    std::shared_ptr<const ManufacturerList> list; ///< Null: none was ever read.
    std::vector<EquipmentSection> sections;
    std::vector<EquipmentRow> rows;

    /// Rows whose installed database needs an update.
    [[nodiscard]] std::int32_t DatabasesThatNeedUpdate() const;

    /// Sections whose installed pictures need an update.
    [[nodiscard]] std::int32_t PicturesThatNeedUpdate() const;
};

} // namespace velmo
