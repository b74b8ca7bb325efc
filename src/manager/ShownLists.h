#pragma once

#include "catalogue/CommonFolder.h"
#include "controls/Observers.h"
#include "news/Headlines.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace velmo
{

class EquipmentList;
class ProgramStatusList;
struct VendorLists;

enum class UpdateKind
{
    Program,
    Database,
    Pictures,
};

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

/// What is made of the vendor's lists for people: the list of programs, the equipment grid, the
/// headlines and the counts. User-interface thread.
class ShownLists
{
  public:
    /// @a stores say what is installed, until Empty() reads them anew. References must outlive the object.
    ShownLists(ProgramStatusList& programs, EquipmentList& equipment, SharedValues stores);

    /// What there is to show without any list: no headline, no latest version. The equipment keeps the
    /// rows that it has.
    void Empty();

    /// Rebuilds the programs, the equipment and the headlines from the lists, the equipment only when
    /// there is a list of it.
    void Refresh(const VendorLists& lists);

    /// Makes the first and then the selected program visible.
    void ShowSelectedProgram();

    /// Goes to the first row that needs an update of that kind, or of the next one when none of that
    /// kind does. The kind that it went to; nothing when nothing needs an update.
    std::optional<UpdateKind> GoToFirst(UpdateKind kind);

    /// Looks again at what equipment is installed.
    void InspectEquipmentAgain();

    [[nodiscard]] UpdateCounts Counts() const;
    [[nodiscard]] const std::vector<Headline>& Headlines() const { return m_headlines; }

    [[nodiscard]] Observers& CountsChanged() { return m_countsChanged; }
    [[nodiscard]] Observers& HeadlinesChanged() { return m_headlinesChanged; }

  private:
    void Rebuild(const VendorLists& lists);
    void LoadHeadlines(std::vector<Headline> headlines);
    [[nodiscard]] bool GoToProgram();
    [[nodiscard]] bool GoToEquipment(bool pictures);

    ProgramStatusList& m_programs;
    EquipmentList& m_equipment;
    SharedValues m_stores; ///< Read once for each fetch, at its begin.
    std::vector<Headline> m_headlines;
    Observers m_countsChanged;
    Observers m_headlinesChanged;
};

} // namespace velmo
