#pragma once

#include "catalogue/CVelmoProgramCommunicator.h"
#include "controls/ListViewModel.h"
#include "controls/StatusBoxModel.h"
#include "download/UrlToFile.h"
#include "equipment/EquipmentList.h"
#include "settings/CINIFileHandler.h"
#include "settings/DiagnosticLog.h"
#include "updates/ListsDownload.h"
#include "updates/ProgramStatusList.h"
#include "updates/VersionList.h"

#include <cstdint>
#include <string>

namespace velmo
{

class MousePointer;
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
};

/**
    The update manager without its windows: builds every part of the program in its order and hands
    them to one another. The main window and the headless program stand on it. User-interface thread.
 */
class UpdateManager final : private ListsDownloadClient
{
  public:
    /// All references must outlive the manager.
    UpdateManager(platform::MessageLoop& loop, UserPrompts& prompts, MousePointer& pointer);

    /// One view; nullptr for none.
    void Show(UpdateManagerView* view) { m_view = view; }

    /// Fetches the lists and refreshes everything that is made of them.
    void FetchLists();

    /// The connect button: cancels a running fetch, else fetches.
    void Reconnect();

    /// Fills the lists from what is there; run once when the window opens.
    void FillLists();

    /// "AutoConnect": fetch when the window opens.
    [[nodiscard]] bool AutoConnect() const;
    void SetAutoConnect(bool automatically);

    [[nodiscard]] UpdateCounts Counts() const;

    [[nodiscard]] DiagnosticLog& Log() { return m_log; }
    [[nodiscard]] CINIFileHandler& Settings() { return m_settings; }
    [[nodiscard]] StatusBoxModel& StatusBox() { return m_statusBox; }
    [[nodiscard]] ProgramStatusList& Programs() { return m_programs; }
    [[nodiscard]] ListsDownload& Lists() { return m_lists; }
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

    DiagnosticLog m_log;
    CINIFileHandler m_settings;
    StatusBoxModel m_statusBox;
    CVelmoProgramCommunicator m_locator;
    UrlToFile m_urlToFile;
    ListsDownload m_lists;
    VersionList m_versionList;
    ProgramStatusList m_programs;
    EquipmentList m_equipment;
    UpdateManagerView* m_view = nullptr;
};

} // namespace velmo
