#include "manager/UpdateManager.h"

#include "catalogue/CommonFolder.h"
#include "catalogue/VendorServer.h"
#include "equipment/DownloadFolder.h"
#include "platform/DesktopFolders.h"
#include "platform/MFile.h"

namespace velmo
{
namespace
{

constexpr std::string_view kMiscellaneous = "Miscellaneous";
constexpr std::string_view kAutoConnect = "AutoConnect";

} // namespace

std::string UpdateCounts::Text() const
{
    return "Need to Update:  Programs: " + std::to_string(programs) +
           ", Databases: " + std::to_string(databases) + ", Pictures: " + std::to_string(pictures);
}

UpdateManager::UpdateManager(platform::MessageLoop& loop, UserPrompts& prompts,
                             MousePointer& pointer)
    : m_log(LogFilePath()), m_settings(m_log), m_locator(m_log, prompts), m_urlToFile(loop),
      m_lists(ListFiles(platform::ProgramFolder()), ConfiguredServer(m_log), m_urlToFile, loop,
              m_statusBox, pointer, m_log),
      m_versionList(m_lists.Files().versionList, m_log),
      m_programs(m_locator, m_settings, m_versionList),
      m_equipment(m_lists.Files().manufacturerList, m_lists.Server().webServer, m_locator, m_log)
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

void UpdateManager::ClearHeadlines() {}

void UpdateManager::RefreshLists()
{
    m_programs.Rebuild(platform::MFile::FileExists(m_lists.Files().versionList));
    m_equipment.Refresh();
    if (m_view != nullptr)
    {
        m_view->OnCountsChanged();
    }
}

void UpdateManager::LoadHeadlines() {}

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
