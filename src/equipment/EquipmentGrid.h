#pragma once

#include "controls/GridModel.h"
#include "equipment/CDownloadFiles.h"

#include <array>
#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <utility>

namespace velmo
{

struct ManufacturerEntry;

/// Columns of the equipment grid.
enum class EquipmentColumn : std::size_t
{
    SectionName,
    DatabaseSetup,
    InstallDatabase,
    PictureSetup,
    InstallPictures,
    DatabaseSize,
    DatabaseBytes,
    PicturesSize,
    PicturesBytes,
    Manufacturer,
    DatabaseFile,
    DatabaseInstalled,
    DatabaseLatest,
    DatabaseNeedsUpdate,
    PicturesInstalled,
    PicturesLatest,
    PicturesNeedUpdate,
    FirstKind, ///< The kinds of equipment, up to the last column.
};

inline constexpr std::size_t kEquipmentColumns = 32;

/// The column's number in the grid's model.
[[nodiscard]] constexpr std::size_t Index(EquipmentColumn column)
{
    return static_cast<std::size_t>(column);
}

/// What a mark or clear command does to the boxes of its column.
enum class MarkRule
{
    All,
    None,
    NeedUpdating,
    AllExceptUpToDate,
};

struct MarkCommand
{
    std::string_view name; ///< Of its menu item.
    std::string_view caption;
    EquipmentColumn column;
    MarkRule rule;
    bool beginsGroup = false; ///< A separator stands above it.
};

/// The commands in the order of their menu.
extern const std::array<MarkCommand, 8> kMarkCommands;

/// Files to download and the sum of their sizes in bytes.
struct DownloadSelection
{
    CDownloadFiles files;
    double bytes = 0;
};

/**
    The equipment grid: a row for each database of the manufacturer list, boxes to tick what shall be
    installed, and the commands that tick them. What is ticked is known by the grid's cells alone.
    User-interface thread.
 */
class EquipmentGrid
{
  public:
    EquipmentGrid();

    [[nodiscard]] GridModel& Model() { return m_model; }
    [[nodiscard]] const GridModel& Model() const { return m_model; }

    /// Removes all rows; the next one begins the bands of colour anew.
    void Clear();

    /// Adds a row at the bottom. Sections alternate between two background colours; rows that need an
    /// update are bold, those that need it for their pictures only are blue.
    void AddRow(const ManufacturerEntry& entry);

    [[nodiscard]] const std::string& Text(std::size_t row, EquipmentColumn column) const;

    /// The user ticks or unticks one box. Returns false where there is none.
    bool Toggle(std::size_t row, std::size_t column);

    /// Boxes that a section shares a setup behind are ticked together by NeedUpdating and
    /// AllExceptUpToDate; a box that is ticked already stays so.
    void Run(const MarkCommand& command);

    [[nodiscard]] DownloadSelection TickedDatabases() const;
    [[nodiscard]] DownloadSelection TickedPictures() const;

    /// What is ticked, e.g. "DB: 2, Pic: 1, 3.4 MB".
    [[nodiscard]] const std::string& Summary() const { return m_summary; }
    void RefreshSummary();

    /// Called after each refresh of the summary; empty for nobody.
    void ObserveSummary(std::function<void()> refreshed) { m_refreshed = std::move(refreshed); }

  private:
    [[nodiscard]] bool IsWanted(std::size_t row, const MarkCommand& command) const;
    [[nodiscard]] std::size_t EndOfSection(std::size_t row) const;
    void TickSections(const MarkCommand& command);

    GridModel m_model;
    std::string m_previousSection;
    Colour m_band;
    std::string m_summary;
    std::function<void()> m_refreshed;
};

} // namespace velmo
