#pragma once

#include "equipment/EquipmentRow.h"
#include "install/InstallOrder.h"

#include <array>
#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <utility>

namespace velmo
{

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

/**
    The equipment grid: a row for each database of the manufacturer list, boxes to tick what shall be
    installed, and the commands that tick them. It owns the rows, ticks included, and the grid's model
    asks it for what they look like. User-interface thread.
 */
class EquipmentGrid final : private GridSource
{
  public:
    EquipmentGrid();
    EquipmentGrid(const EquipmentGrid&) = delete;
    EquipmentGrid& operator=(const EquipmentGrid&) = delete;

    [[nodiscard]] GridModel& Model() { return m_model; }
    [[nodiscard]] const GridModel& Model() const { return m_model; }
    [[nodiscard]] const EquipmentRows& Rows() const { return m_rows; }

    /// Shows other rows. Those of the list that is shown already keep their ticks.
    void Show(EquipmentRows rows);

    /// The one text that a row's cell has, wherever it is shown.
    [[nodiscard]] std::string Text(std::size_t row, EquipmentColumn column) const;

    /// The user ticks or unticks one box. Returns false where there is none.
    bool Toggle(std::size_t row, std::size_t column);

    /// Boxes that a section shares a setup behind are ticked together by NeedUpdating and
    /// AllExceptUpToDate; a box that is ticked already stays so.
    void Run(const MarkCommand& command);

    /// The setups of what is ticked in a column of boxes, without their title and folder.
    [[nodiscard]] SetupFiles Ticked(EquipmentColumn column) const;

    /// What is ticked, e.g. "DB: 2, Pic: 1, 3.4 MB".
    [[nodiscard]] std::string Summary() const;

    /// Called each time that the summary may have changed; empty for nobody.
    void ObserveSummary(std::function<void()> refreshed) { m_refreshed = std::move(refreshed); }

  private:
    [[nodiscard]] std::size_t RowCount() const override { return m_rows.rows.size(); }
    [[nodiscard]] std::string Text(std::size_t row, std::size_t column) const override;
    [[nodiscard]] TickState Tick(std::size_t row, std::size_t column) const override;
    [[nodiscard]] GridLook Look(std::size_t row) const override;
    [[nodiscard]] GridSpan Group(std::size_t row) const override;
    [[nodiscard]] std::string Tip(std::size_t row, std::size_t column) const override;

    [[nodiscard]] const EquipmentSection& SectionOf(const EquipmentRow& row) const;
    [[nodiscard]] bool IsWanted(const EquipmentRow& row, const MarkCommand& command) const;
    void RefreshSummary() const;

    EquipmentRows m_rows;
    GridModel m_model;
    std::function<void()> m_refreshed;
};

} // namespace velmo
