#include "manager/UpdateManager.h"

#include "catalogue/VendorServer.h"
#include "install/DownloadFolder.h"
#include "install/InstallFlow.h"
#include "manager/Details.h"
#include "platform/DesktopFolders.h"
#include "updates/UpdatePrompts.h"

#include <chrono>
#include <utility>

namespace velmo
{
namespace
{

constexpr std::string_view kMiscellaneous = "Miscellaneous";
constexpr std::string_view kAutoConnect = "AutoConnect";

/// A start-up run takes 45 seconds at most: these for the server, the rest for this computer.
constexpr std::chrono::seconds kDownloadTimeAtStartup(40);

} // namespace

UpdateManager::UpdateManager(platform::MessageLoop& loop, UserPrompts& prompts,
                             MousePointer& pointer, AddressOpener::Shell shell)
    : m_stores(SharedValues::Read()), m_log(m_stores.LogFilePath()), m_settings(m_log),
      m_locator(m_log, prompts), m_urlToFile(loop),
      m_lists(FetchedFiles(platform::ProgramFolder()), ConfiguredServer(m_log),
              {m_urlToFile, loop, m_statusBox, pointer, m_log}),
      m_programs(m_locator, m_settings), m_equipment(m_locator, m_log),
      m_shown(m_programs, m_equipment, m_stores), m_startup(m_locator),
      m_addresses(m_log, std::move(shell)), m_actions(m_lists.Server(), prompts, m_addresses)
{
    m_settings.AppProfileFileName(m_stores.SettingsFilePath());
}

void UpdateManager::FetchLists()
{
    m_lists.Run(&m_shown);
}

void UpdateManager::Reconnect()
{
    if (m_lists.Busy())
    {
        m_lists.Cancel();
    }
    else
    {
        FetchLists();
    }
}

void UpdateManager::FillLists()
{
    MendInterruptedInstall(m_settings, m_stores.CommonFolder(), m_log);
    if (m_lists.Report().stage == FetchStage::NotYet)
    {
        m_lists.TakeFiles();
    }
    m_lists.TakeOutServers();
    m_shown.Refresh(m_lists.Lists());
}

void UpdateManager::MarkCaller(const StartupRequest& request)
{
    velmo::MarkCaller(m_settings, m_settings.Snapshot(), request);
}

StartupFindings UpdateManager::CheckForCaller(const StartupRequest& request, Time started)
{
    const SettingsSnapshot settings = m_settings.Snapshot();
    velmo::MarkCaller(m_settings, settings, request);
    m_lists.EndBy(started + kDownloadTimeAtStartup);
    const auto fetch = [this] {
        m_lists.Run(nullptr);
        return m_lists.Report().Succeeded() ? &m_lists.Lists().versions : nullptr;
    };
    return m_startup.CheckCaller(request, {settings, m_stores}, fetch,
                                 [this] { return CountEquipment(); });
}

std::optional<MainTab> UpdateManager::TellCaller(const StartupFindings& findings,
                                                 const StartupRequest& request,
                                                 UpdatePrompts& prompts)
{
    if (findings.Outcome() == StartupOutcome::Question &&
        prompts.AskToViewUpdates(request, StartupQuestion(findings, request.caller)) ==
            QuestionAnswer::Yes)
    {
        return findings.update ? MainTab::Programs : MainTab::Equipment;
    }
    if (findings.Outcome() == StartupOutcome::Dialog)
    {
        OfferUpdate(*findings.update, prompts);
    }
    DeleteLists();
    return std::nullopt;
}

void UpdateManager::RunAfterOpening(const StartupRequest& request, const ProgramVersion& own,
                                    UpdatePrompts& prompts)
{
    if (AutoConnect())
    {
        FetchLists();
    }
    const ProgramRow* selected = m_programs.Selected();
    if (request.AsksForStatus() && selected != nullptr)
    {
        const StatusNotice notice = StatusNoticeOf(*selected);
        prompts.Notify(PromptIcon::Information, notice.text, notice.title);
    }
    if (const auto update =
            m_startup.CheckSelf(own, m_lists.Lists().versions, SharedValues::Read()))
    {
        OfferUpdate(*update, prompts);
    }
}

void UpdateManager::OfferUpdate(const ProgramRow& program, UpdatePrompts& prompts)
{
    if (prompts.ShowUpdateDialog(program) == DialogAnswer::Download)
    {
        m_actions.Download(program);
    }
}

EquipmentCounts UpdateManager::CountEquipment()
{
    if (m_lists.Lists().equipment)
    {
        m_equipment.Show(m_lists.Lists().equipment, m_stores);
    }
    return {m_equipment.CountDatabasesThatNeedUpdate(), m_equipment.CountPicturesThatNeedUpdate()};
}

bool UpdateManager::AutoConnect() const
{
    return m_settings.MyGetAppProfileBoolean(kMiscellaneous, kAutoConnect, true);
}

void UpdateManager::SetAutoConnect(bool automatically)
{
    m_settings.MyWriteAppProfileBoolean(kMiscellaneous, kAutoConnect, automatically);
}

void UpdateManager::InspectEquipmentAgain()
{
    // A setup that still ran when the flow ended could not be removed then.
    DownloadFolder(CommonFolder(), m_log).Remove();
    m_shown.InspectEquipmentAgain();
}

std::string UpdateManager::Details(std::string_view programVersion) const
{
    return DetailsText({programVersion, m_lists, m_statusBox, m_programs.Rows(),
                        m_settings.AppProfileFileName(), m_log.Path()});
}

} // namespace velmo
