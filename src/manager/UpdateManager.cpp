#include "manager/UpdateManager.h"

#include "catalogue/CommonFolder.h"
#include "catalogue/ProgramCatalogue.h"
#include "catalogue/VendorServer.h"
#include "equipment/DownloadFolder.h"
#include "manager/Details.h"
#include "platform/DesktopFolders.h"
#include "platform/MFile.h"
#include "updates/StatusNotice.h"
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

/// A fetch that fills nothing: nobody looks at the lists of a start-up run.
class NoLists final : public ListsDownloadClient
{
  public:
    void ClearHeadlines() override {}
    void RefreshLists() override {}
    void LoadHeadlines() override {}
    void ShowSelectedProgram() override {}
    void RedrawProgramList() override {}
    void OnBusyChanged(bool /*busy*/) override {}
};

} // namespace

std::string UpdateCounts::Text() const
{
    return "Need to Update:  Programs: " + std::to_string(programs) +
           ", Databases: " + std::to_string(databases) + ", Pictures: " + std::to_string(pictures);
}

UpdateManager::UpdateManager(platform::MessageLoop& loop, UserPrompts& prompts,
                             MousePointer& pointer, AddressOpener::Shell shell)
    : m_log(LogFilePath()), m_settings(m_log), m_locator(m_log, prompts), m_urlToFile(loop),
      m_lists(ListFiles(platform::ProgramFolder()), ConfiguredServer(m_log), m_urlToFile, loop,
              m_statusBox, pointer, m_log),
      m_versionList(m_lists.Files().versionList, m_log),
      m_programs(m_locator, m_settings, m_versionList),
      m_equipment(m_lists.Files().manufacturerList, m_lists.Server().webServer, m_locator, m_log),
      m_startup(m_locator, m_settings, m_versionList), m_addresses(m_log, std::move(shell)),
      m_actions(m_lists.Server(), prompts, m_addresses)
{
    m_settings.AppProfileFileName(SettingsFilePath());
}

void UpdateManager::FetchLists()
{
    m_lists.Fetch(*this);
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
    RefreshLists();
    LoadHeadlines();
}

StartupFindings UpdateManager::CheckForCaller(const StartupRequest& request)
{
    m_urlToFile.EndBy(std::chrono::steady_clock::now() + kDownloadTimeAtStartup);
    const auto fetch = [this] {
        NoLists client;
        m_lists.Fetch(client);
        return m_lists.Succeeded();
    };
    return m_startup.CheckCaller(request, fetch, [this] { return CountEquipment(); });
}

void UpdateManager::RunAfterOpening(const StartupRequest& request, const ProgramVersion& own,
                                    UpdatePrompts& prompts)
{
    if (AutoConnect())
    {
        FetchLists();
    }
    const ListRow* selected = m_programs.List().SelectedRow();
    if (request.AsksForStatus() && selected != nullptr)
    {
        const StatusNotice notice = StatusNoticeOf(*selected);
        prompts.Notify(PromptIcon::Information, notice.text, notice.title);
    }
    OfferOwnUpdate(own, prompts);
}

void UpdateManager::OfferOwnUpdate(const ProgramVersion& own, UpdatePrompts& prompts)
{
    const auto notice = m_startup.CheckSelf(own);
    if (notice && prompts.ShowUpdateDialog(*notice) == DialogAnswer::Download)
    {
        Download(notice->program);
    }
}

void UpdateManager::Download(std::string_view program)
{
    m_actions.Download(IndexOfName(program), m_versionList.Read(program).demoUrl);
}

EquipmentCounts UpdateManager::CountEquipment()
{
    // The windows may read the list again, server and all.
    m_equipment.Refresh(ServerValues::Leave);
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

UpdateCounts UpdateManager::Counts() const
{
    return {m_programs.CountThatNeedUpdate(), m_equipment.CountDatabasesThatNeedUpdate(),
            m_equipment.CountPicturesThatNeedUpdate()};
}

void UpdateManager::InspectEquipmentAgain()
{
    // A setup that still ran when the flow ended could not be removed then.
    DownloadFolder(CommonFolder(), m_log).Remove();
    m_equipment.InspectAgain();
    if (m_view != nullptr)
    {
        m_view->OnCountsChanged();
    }
}

void UpdateManager::DeleteLists()
{
    m_lists.Files().Delete(m_log);
}

std::string UpdateManager::Details(std::string_view programVersion) const
{
    return DetailsText({programVersion, m_lists, m_statusBox, m_programs.List(),
                        m_settings.AppProfileFileName(), m_log.Path()});
}

void UpdateManager::ClearHeadlines()
{
    m_headlines.clear();
    if (m_view != nullptr)
    {
        m_view->OnHeadlinesChanged();
    }
}

void UpdateManager::RefreshLists()
{
    m_programs.Rebuild(platform::MFile::FileExists(m_lists.Files().versionList));
    m_equipment.Refresh();
    if (m_view != nullptr)
    {
        m_view->OnCountsChanged();
    }
}

void UpdateManager::LoadHeadlines()
{
    m_headlines = ReadHeadlines(m_lists.Files().versionList, m_log);
    if (m_view != nullptr)
    {
        m_view->OnHeadlinesChanged();
    }
}

void UpdateManager::ShowSelectedProgram()
{
    ListViewModel& list = m_programs.List();
    if (!list.Rows().empty())
    {
        list.ScrollTo(list.Rows().front().key);
    }
    if (const ListRow* selected = list.SelectedRow())
    {
        list.ScrollTo(selected->key);
    }
}

void UpdateManager::RedrawProgramList()
{
    if (m_view != nullptr)
    {
        m_view->RedrawProgramList();
    }
}

void UpdateManager::OnBusyChanged(bool /*busy*/)
{
    if (m_view != nullptr)
    {
        m_view->OnBusyChanged();
        m_view->OnCountsChanged();
    }
}

} // namespace velmo
