#include "manager/ShownLists.h"

#include "equipment/EquipmentList.h"
#include "manager/VendorLists.h"
#include "updates/ProgramStatusList.h"

#include <algorithm>
#include <array>
#include <utility>

namespace velmo
{

std::string UpdateCounts::Text() const
{
    return "Need to Update:  Programs: " + std::to_string(programs) +
           ", Databases: " + std::to_string(databases) + ", Pictures: " + std::to_string(pictures);
}

ShownLists::ShownLists(ProgramStatusList& programs, EquipmentList& equipment, SharedValues stores)
    : m_programs(programs), m_equipment(equipment), m_stores(std::move(stores))
{}

void ShownLists::Empty()
{
    m_stores = SharedValues::Read();
    LoadHeadlines({});
    Rebuild({});
}

void ShownLists::Refresh(const VendorLists& lists)
{
    Rebuild(lists);
    LoadHeadlines(lists.headlines);
}

void ShownLists::Rebuild(const VendorLists& lists)
{
    m_programs.Rebuild(lists.versions, m_stores);
    if (lists.equipment)
    {
        m_equipment.Show(lists.equipment, m_stores);
    }
    m_countsChanged.Tell();
}

void ShownLists::LoadHeadlines(std::vector<Headline> headlines)
{
    m_headlines = std::move(headlines);
    m_headlinesChanged.Tell();
}

void ShownLists::ShowSelectedProgram()
{
    ListViewModel& list = m_programs.List();
    list.ScrollTo(0);
    list.ScrollTo(list.SelectedPosition());
}

std::optional<UpdateKind> ShownLists::GoToFirst(UpdateKind kind)
{
    constexpr std::array kKinds{UpdateKind::Program, UpdateKind::Database, UpdateKind::Pictures};
    for (std::size_t i = 0; i < kKinds.size(); ++i)
    {
        const UpdateKind next = kKinds.at((static_cast<std::size_t>(kind) + i) % kKinds.size());
        if (next == UpdateKind::Program ? GoToProgram()
                                        : GoToEquipment(next == UpdateKind::Pictures))
        {
            return next;
        }
    }
    return std::nullopt;
}

bool ShownLists::GoToProgram()
{
    ListViewModel& list = m_programs.List();
    for (std::size_t position = 0; position < list.RowCount(); ++position)
    {
        if (list.Bold(position))
        {
            list.SelectAt(position);
            list.ScrollTo(position);
            return true;
        }
    }
    return false;
}

bool ShownLists::GoToEquipment(bool pictures)
{
    const EquipmentRows& shown = m_equipment.Grid().Rows();
    const auto found = std::ranges::find_if(shown.rows, [&](const EquipmentRow& row) {
        const InstalledVersion& installed =
            pictures ? shown.sections[row.section].pictures : row.installed;
        return installed.status == EquipmentStatus::NeedsUpdate;
    });
    if (found == shown.rows.end())
    {
        return false;
    }
    const auto row = static_cast<std::size_t>(found - shown.rows.begin());
    const auto column =
        pictures ? EquipmentColumn::PicturesNeedUpdate : EquipmentColumn::DatabaseNeedsUpdate;
    m_equipment.Grid().Model().MoveTo({row, Index(column), row, 0});
    return true;
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
