#pragma once

#include "controls/Observers.h"
#include "news/Headlines.h"

#include <cstdint>
#include <string>
#include <vector>

namespace velmo
{

class DiagnosticLog;
class EquipmentList;
class ProgramStatusList;
struct FetchedFiles;

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
    /// @a newsPage is the address that headlines' links are completed from. References must outlive
    /// the object.
    ShownLists(const FetchedFiles& files, ProgramStatusList& programs, EquipmentList& equipment,
               std::string newsPage, DiagnosticLog& log);

    void ClearHeadlines();

    /// Rebuilds the programs and the equipment from the files that are there; none may be.
    void Refresh();

    void LoadHeadlines();

    /// Makes the first and then the selected program visible.
    void ShowSelectedProgram();

    /// Looks again at what equipment is installed.
    void InspectEquipmentAgain();

    [[nodiscard]] UpdateCounts Counts() const;
    [[nodiscard]] const std::vector<Headline>& Headlines() const { return m_headlines; }

    [[nodiscard]] Observers& CountsChanged() { return m_countsChanged; }
    [[nodiscard]] Observers& HeadlinesChanged() { return m_headlinesChanged; }

  private:
    const FetchedFiles& m_files;
    ProgramStatusList& m_programs;
    EquipmentList& m_equipment;
    std::string m_newsPage;
    DiagnosticLog& m_log;
    std::vector<Headline> m_headlines;
    Observers m_countsChanged;
    Observers m_headlinesChanged;
};

} // namespace velmo
