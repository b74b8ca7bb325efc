#include "manager/ShownLists.h"

#include "equipment/EquipmentList.h"
#include "manager/FetchedFiles.h"
#include "platform/MFile.h"
#include "settings/CINIFileHandler.h"
#include "updates/ProgramStatusList.h"

#include <utility>

namespace velmo
{

std::string UpdateCounts::Text() const
{
    return "Need to Update:  Programs: " + std::to_string(programs) +
           ", Databases: " + std::to_string(databases) + ", Pictures: " + std::to_string(pictures);
}

ShownLists::ShownLists(const FetchedFiles& files, ProgramStatusList& programs,
                       EquipmentList& equipment, std::string newsPage, DiagnosticLog& log)
    : m_files(files), m_programs(programs), m_equipment(equipment), m_newsPage(std::move(newsPage)),
      m_log(log)
{}

void ShownLists::ClearHeadlines()
{
    m_headlines.clear();
    m_headlinesChanged.Tell();
}

void ShownLists::Refresh()
{
    m_programs.Rebuild(platform::MFile::FileExists(m_files.versionList));
    m_equipment.Refresh();
    m_countsChanged.Tell();
}

void ShownLists::LoadHeadlines()
{
    CINIFileHandler list(m_log);
    list.AppProfileFileName(m_files.versionList);
    m_headlines = ReadHeadlines(list.Snapshot(), m_newsPage, m_log);
    m_headlinesChanged.Tell();
}

void ShownLists::ShowSelectedProgram()
{
    ListViewModel& list = m_programs.List();
    list.ScrollTo(0);
    list.ScrollTo(list.SelectedPosition());
}

void ShownLists::InspectEquipmentAgain()
{
    m_equipment.InspectAgain();
    m_countsChanged.Tell();
}

UpdateCounts ShownLists::Counts() const
{
    return {m_programs.CountThatNeedUpdate(), m_equipment.CountDatabasesThatNeedUpdate(),
            m_equipment.CountPicturesThatNeedUpdate()};
}

} // namespace velmo
