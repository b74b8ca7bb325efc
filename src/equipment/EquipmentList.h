#pragma once

#include "equipment/EquipmentGrid.h"
#include "install/InstallOrder.h"

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace velmo
{

class CVelmoProgramCommunicator;
class DiagnosticLog;
class SharedValues;
class UserPrompts;

/**
    The equipment databases and pictures that the vendor offers, with what of them is installed here.
    What is installed is looked at anew each time that the grid is filled. The cost grows linearly with the list. User-interface thread.
 */
class EquipmentList
{
  public:
    using Clock = std::function<std::chrono::system_clock::time_point()>;

    /// References must outlive the object.
    EquipmentList(CVelmoProgramCommunicator& locator, DiagnosticLog& log,
                  Clock clock = std::chrono::system_clock::now);

    /// Fills the grid from a list, with what @a stores and the data folder say is installed.
    void Show(std::shared_ptr<const ManufacturerList> list, const SharedValues& stores);

    /// Fills the grid again from the list that it shows, to show what is installed by now.
    void InspectAgain();

    [[nodiscard]] EquipmentGrid& Grid() { return m_grid; }
    [[nodiscard]] const EquipmentGrid& Grid() const { return m_grid; }

    /// Installed databases that need an update: rows of the grid.
    [[nodiscard]] std::int32_t CountDatabasesThatNeedUpdate() const
    {
        return m_grid.Rows().DatabasesThatNeedUpdate();
    }

    /// Installed groups of pictures that need an update: sections of the grid.
    [[nodiscard]] std::int32_t CountPicturesThatNeedUpdate() const
    {
        return m_grid.Rows().PicturesThatNeedUpdate();
    }

    /// What is ticked. Nothing, and the user is told why, when no box is.
    [[nodiscard]] std::optional<InstallOrder> PrepareInstall(UserPrompts& prompts) const;

  private:
    CVelmoProgramCommunicator& m_locator;
    DiagnosticLog& m_log;
    Clock m_clock;
    EquipmentGrid m_grid;
};

} // namespace velmo
