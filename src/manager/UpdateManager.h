#pragma once

#include "catalogue/CVelmoProgramCommunicator.h"
#include "controls/ListViewModel.h"
#include "controls/StatusBoxModel.h"
#include "download/UrlToFile.h"
#include "equipment/EquipmentList.h"
#include "news/Headlines.h"
#include "platform/Processes.h"
#include "settings/CINIFileHandler.h"
#include "settings/DiagnosticLog.h"
#include "updates/AddressOpener.h"
#include "updates/ListsDownload.h"
#include "updates/ProgramActions.h"
#include "updates/ProgramStatusList.h"
#include "updates/StartupCheck.h"
#include "updates/VersionList.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace velmo
{

class MousePointer;
class UpdatePrompts;
class UserPrompts;
namespace platform
{
class MessageLoop;
}

/// How many programs, installed databases and installed picture groups need an update.
struct UpdateCounts
{
    std::int32_t programs = 0;
    std::int32_t databases = 0;
    std::int32_t pictures = 0;

    [[nodiscard]] bool Any() const { return programs + databases + pictures > 0; }

    /// "Need to Update:  Programs: 1, Databases: 0, Pictures: 0".
    [[nodiscard]] std::string Text() const;
};

/// What the window that shows the manager is told. User-interface thread.
class UpdateManagerView
{
  public:
    virtual ~UpdateManagerView() = default;

    virtual void OnBusyChanged() = 0; ///< A fetch started or ended.
    virtual void OnCountsChanged() = 0;
    virtual void RedrawProgramList() = 0;
    virtual void OnHeadlinesChanged() {}
};

/**
    The update manager without its windows: builds every part of the program in its order and hands
    them to one another. The main window and the headless program stand on it. User-interface thread.
 */
class UpdateManager final : private ListsDownloadClient
{
  public:
    /// All references must outlive the manager. @a shell opens web addresses.
    UpdateManager(platform::MessageLoop& loop, UserPrompts& prompts, MousePointer& pointer,
                  AddressOpener::Shell shell = platform::OpenThroughShell);

    /// One view; nullptr for none.
    void Show(UpdateManagerView* view) { m_view = view; }

    /// Fetches the lists and refreshes everything that is made of them.
    void FetchLists();

    /// The connect button: cancels a running fetch, else fetches.
    void Reconnect();

    /// Fills the lists from what is there; run once when the window opens.
    void FillLists();

    /**
        What there is to tell to the program that started this one. Fetches the lists when that is
        needed, without filling any list from them; whatever the server does, it is done after 45
        seconds, and a failure means that there is nothing to tell.
     */
    [[nodiscard]] StartupFindings CheckForCaller(const StartupRequest& request);

    /// What the timer does once after the window opened: connects when that is automatic, tells the
    /// status of the program that the command line named, and offers an update of the update manager
    /// itself, whose running version is @a own. Not while a fetch runs.
    void RunAfterOpening(const StartupRequest& request, const ProgramVersion& own,
                         UpdatePrompts& prompts);

    /// The reminder, then the setup of the program of that display name in the browser.
    void Download(std::string_view program);

    /// "AutoConnect": fetch when the window opens.
    [[nodiscard]] bool AutoConnect() const;
    void SetAutoConnect(bool automatically);

    [[nodiscard]] UpdateCounts Counts() const;

    [[nodiscard]] DiagnosticLog& Log() { return m_log; }
    [[nodiscard]] CINIFileHandler& Settings() { return m_settings; }
    [[nodiscard]] StatusBoxModel& StatusBox() { return m_statusBox; }
    [[nodiscard]] ProgramStatusList& Programs() { return m_programs; }
    [[nodiscard]] ListsDownload& Lists() { return m_lists; }
    [[nodiscard]] StartupCheck& Startup() { return m_startup; }
    [[nodiscard]] ProgramActions& Actions() { return m_actions; }
    [[nodiscard]] AddressOpener& Addresses() { return m_addresses; }
    [[nodiscard]] const std::vector<Headline>& Headlines() const { return m_headlines; }

    /// The text that support asks for first. @a programVersion is this program's own.
    [[nodiscard]] std::string Details(std::string_view programVersion) const;
    [[nodiscard]] EquipmentList& Equipment() { return m_equipment; }

    /// Shows in the equipment grid what is installed by now, and removes the downloaded setups that
    /// have ended. For after an installation.
    void InspectEquipmentAgain();

    /// Deletes the list files: the last thing that a program run does with them.
    void DeleteLists();

  private:
    void ClearHeadlines() override;
    void RefreshLists() override;
    void LoadHeadlines() override;
    void ShowSelectedProgram() override;
    void RedrawProgramList() override;
    void OnBusyChanged(bool busy) override;

    [[nodiscard]] EquipmentCounts CountEquipment();
    void OfferOwnUpdate(const ProgramVersion& own, UpdatePrompts& prompts);

    DiagnosticLog m_log;
    CINIFileHandler m_settings;
    StatusBoxModel m_statusBox;
    CVelmoProgramCommunicator m_locator;
    UrlToFile m_urlToFile;
    ListsDownload m_lists;
    VersionList m_versionList;
    ProgramStatusList m_programs;
    EquipmentList m_equipment;
    StartupCheck m_startup;
    AddressOpener m_addresses;
    ProgramActions m_actions;
    std::vector<Headline> m_headlines;
    UpdateManagerView* m_view = nullptr;
};

} // namespace velmo
