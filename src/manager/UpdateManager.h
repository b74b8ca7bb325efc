#pragma once

#include "catalogue/CVelmoProgramCommunicator.h"
#include "catalogue/CommonFolder.h"
#include "controls/ListViewModel.h"
#include "controls/StatusBoxModel.h"
#include "download/UrlToFile.h"
#include "equipment/EquipmentList.h"
#include "manager/ListsFetch.h"
#include "manager/ShownLists.h"
#include "platform/Processes.h"
#include "settings/CINIFileHandler.h"
#include "settings/DiagnosticLog.h"
#include "updates/AddressOpener.h"
#include "updates/ProgramActions.h"
#include "updates/ProgramStatusList.h"
#include "updates/StartupCheck.h"

#include <chrono>
#include <optional>
#include <string>
#include <string_view>

namespace velmo
{

class MousePointer;
class UpdatePrompts;
class UserPrompts;
namespace platform
{
class MessageLoop;
}

/// The tabs that a start may open the window on.
enum class MainTab
{
    Programs,
    Equipment,
};

/**
    The update manager without its windows: builds every part of the program in its order and hands
    them to one another. The main window and the headless program stand on it. User-interface thread.
 */
class UpdateManager
{
  public:
    /// All references must outlive the manager. @a shell opens web addresses.
    UpdateManager(platform::MessageLoop& loop, UserPrompts& prompts, MousePointer& pointer,
                  AddressOpener::Shell shell = platform::OpenThroughShell);

    using Time = std::chrono::steady_clock::time_point;

    /// Fetches the lists and refreshes everything that is made of them.
    void FetchLists();

    /// The connect button: cancels a running fetch, else fetches.
    void Reconnect();

    /// Fills the lists from what is there; run once when the window opens.
    void FillLists();

    /// Remembers that the calling program starts the update manager; for a start in either mode.
    void MarkCaller(const StartupRequest& request);

    /**
        What there is to tell to the program that started this one, which is remembered. Fetches the
        lists when that is needed, without filling any list from them; whatever the server does, it is done 45 seconds
        after the program has @a started, and a failure means that there is nothing to tell.
     */
    [[nodiscard]] StartupFindings CheckForCaller(const StartupRequest& request,
                                                 Time started = std::chrono::steady_clock::now());

    /// Asks or tells the person what the findings lead to and does what is answered. The tab to open
    /// the window on; nothing when the program is to end: the lists are deleted then.
    [[nodiscard]] std::optional<MainTab> TellCaller(const StartupFindings& findings,
                                                    const StartupRequest& request,
                                                    UpdatePrompts& prompts);

    /// What the timer does once after the window opened: connects when that is automatic, tells the
    /// status of the program that the command line named, and offers an update of the update manager
    /// itself, whose running version is @a own. Not while a fetch runs.
    void RunAfterOpening(const StartupRequest& request, const ProgramVersion& own,
                         UpdatePrompts& prompts);

    /// "AutoConnect": fetch when the window opens.
    [[nodiscard]] bool AutoConnect() const;
    void SetAutoConnect(bool automatically);

    [[nodiscard]] DiagnosticLog& Log() { return m_log; }
    [[nodiscard]] CINIFileHandler& Settings() { return m_settings; }
    [[nodiscard]] StatusBoxModel& StatusBox() { return m_statusBox; }
    [[nodiscard]] ProgramStatusList& Programs() { return m_programs; }
    [[nodiscard]] ListsFetch& Lists() { return m_lists; }
    [[nodiscard]] ShownLists& Shown() { return m_shown; }
    [[nodiscard]] ProgramActions& Actions() { return m_actions; }
    [[nodiscard]] AddressOpener& Addresses() { return m_addresses; }

    /// The text that support asks for first. @a programVersion is this program's own.
    [[nodiscard]] std::string Details(std::string_view programVersion) const;
    [[nodiscard]] EquipmentList& Equipment() { return m_equipment; }

    /// Shows in the equipment grid what is installed by now, and removes the downloaded setups that
    /// have ended. For after an installation.
    void InspectEquipmentAgain();

    /// Deletes the list files: the last thing that a program run does with them.
    void DeleteLists() { m_lists.DeleteFiles(); }

  private:
    [[nodiscard]] EquipmentCounts CountEquipment();
    void OfferUpdate(const ProgramRow& program, UpdatePrompts& prompts);

    SharedValues m_stores; ///< As they were when the program started.
    DiagnosticLog m_log;
    CINIFileHandler m_settings;
    StatusBoxModel m_statusBox;
    CVelmoProgramCommunicator m_locator;
    UrlToFile m_urlToFile;
    ListsFetch m_lists;
    ProgramStatusList m_programs;
    EquipmentList m_equipment;
    ShownLists m_shown;
    StartupCheck m_startup;
    AddressOpener m_addresses;
    ProgramActions m_actions;
};

} // namespace velmo
