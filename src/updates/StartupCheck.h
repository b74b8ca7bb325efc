#pragma once

#include "updates/ProgramVersion.h"
#include "updates/StartupFindings.h"
#include "updates/StartupRequest.h"

#include <functional>
#include <optional>

namespace velmo
{

class CINIFileHandler;
class CVelmoProgramCommunicator;
class VersionList;

/// Finds out whether there is something to tell: for a program that starts the update manager at its
/// own start, and about the update manager itself. No window. User-interface thread.
class StartupCheck
{
  public:
    /// References must outlive the object.
    StartupCheck(CVelmoProgramCommunicator& locator, CINIFileHandler& settings,
                 const VersionList& versionList);

    /// Remembers that the calling program starts the update manager, so that its start-up options are
    /// offered; for a start in either mode. Nothing without a caller.
    void MarkCaller(const StartupRequest& request);

    /// What there is to tell to the caller, as its start-up options want it. @a fetchLists fetches the
    /// lists and says whether that worked; it is called once at most, and only when there is
    /// something to compare. @a countEquipment counts by the fetched lists. Failures find nothing.
    [[nodiscard]] StartupFindings CheckCaller(
        const StartupRequest& request, const std::function<bool()>& fetchLists,
        const std::function<EquipmentCounts()>& countEquipment) const;

    /// The update manager's own update, by the version list that is there. Nothing when the list is
    /// missing or has no version. @a running is what counts as installed when no version can be read
    /// where the locator looks, as when the program runs from another folder.
    [[nodiscard]] std::optional<UpdateNotice> CheckSelf(const ProgramVersion& running) const;

  private:
    [[nodiscard]] ProgramVersion Installed(std::int32_t index) const;

    CVelmoProgramCommunicator& m_locator;
    CINIFileHandler& m_settings;
    const VersionList& m_versionList;
};

} // namespace velmo
