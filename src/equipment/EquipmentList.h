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
class UserPrompts;

/**
    The equipment databases and pictures that the vendor offers, with what of them is installed here.
    The vendor's list is read once; what is installed is looked at anew each time that the grid is
    filled. The cost grows linearly with the list. User-interface thread.
 */
class EquipmentList
{
  public:
    using Clock = std::function<std::chrono::system_clock::time_point()>;

    /// @a listPath: file of the manufacturer list. @a defaultAddress: server of lists that name none.
    /// References must outlive the object.
    EquipmentList(std::string listPath, std::string defaultAddress,
                  CVelmoProgramCommunicator& locator, DiagnosticLog& log,
                  Clock clock = std::chrono::system_clock::now);

    /// Reads the list and fills the grid. Without a list the grid keeps the rows that it has.
    void Refresh(ServerValues values = ServerValues::TakeOut);

    /// Fills the grid again from the list that was read last, to show what is installed by now.
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
    void Fill(std::shared_ptr<const ManufacturerList> list);

    std::string m_listPath;
    std::string m_defaultAddress;
    CVelmoProgramCommunicator& m_locator;
    DiagnosticLog& m_log;
    Clock m_clock;
    EquipmentGrid m_grid;
};

} // namespace velmo
