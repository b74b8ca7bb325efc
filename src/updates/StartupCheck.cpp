#include "updates/StartupCheck.h"

#include "catalogue/CVelmoProgramCommunicator.h"
#include "catalogue/ProgramCatalogue.h"
#include "settings/CINIFileHandler.h"
#include "updates/StartupOptions.h"
#include "updates/VersionList.h"

namespace velmo
{

StartupCheck::StartupCheck(CVelmoProgramCommunicator& locator, CINIFileHandler& settings,
                           const VersionList& versionList)
    : m_locator(locator), m_settings(settings), m_versionList(versionList)
{}

void StartupCheck::MarkCaller(const StartupRequest& request)
{
    // Not written again at every start: that would cost a whole rewrite of the settings file.
    if (!request.caller.empty() && !IsIntegrated(m_settings, request.caller))
    {
        MarkIntegrated(m_settings, request.caller);
    }
}

StartupFindings StartupCheck::CheckCaller(
    const StartupRequest& request, const std::function<bool()>& fetchLists,
    const std::function<EquipmentCounts()>& countEquipment) const
{
    StartupFindings findings;
    if (request.caller.empty())
    {
        return findings; // No program to compare, and nobody's option asks for equipment.
    }
    const StartupOptions options = ReadStartupOptions(m_settings, request.caller);
    const ProgramVersion installed = options.option == startup_option::kCheck
                                         ? Installed(request.callerIndex)
                                         : ProgramVersion();
    const bool compare = installed.majorNumber != 0;
    if ((!compare && !options.notifyOfEquipment) || !fetchLists())
    {
        return findings;
    }
    if (compare)
    {
        const ListedProgram listed = m_versionList.Read(request.caller);
        findings.programNeedsUpdate =
            listed.latest.majorNumber != 0 && !IsUpToDate(installed, listed.latest);
        findings.installedVersion = InstalledVersionText(installed);
        findings.latestVersion = listed.versionText;
    }
    if (options.notifyOfEquipment)
    {
        findings.equipment = countEquipment();
    }
    return findings;
}

std::optional<UpdateNotice> StartupCheck::CheckSelf(const ProgramVersion& running) const
{
    const std::string name(NameOfIndex(kOwnRow));
    const ListedProgram listed = m_versionList.Read(name);
    if (listed.latest.majorNumber == 0)
    {
        return std::nullopt;
    }
    const ProgramVersion found = Installed(kOwnRow);
    const ProgramVersion& installed = found.majorNumber != 0 ? found : running;
    if (IsUpToDate(installed, listed.latest))
    {
        return std::nullopt;
    }
    return UpdateNotice{kOwnRow, name, InstalledVersionText(installed), listed.versionText};
}

ProgramVersion StartupCheck::Installed(std::int32_t index) const
{
    ProgramVersion version;
    const std::int32_t number = LocatorNumberOfIndex(index);
    if (number != kNoLocatorNumber)
    {
        m_locator.SetFileVersion(number, version.majorNumber, version.minorNumber,
                                 version.revision);
    }
    return version;
}

} // namespace velmo
