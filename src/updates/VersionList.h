#pragma once

#include "catalogue/ProgramTable.h"
#include "settings/SettingsSnapshot.h"
#include "updates/ProgramVersion.h"

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace velmo
{

struct ProgramRow;

/**
    What the vendor's version list says of each program: a value, parsed once. Any thread.

    A missing section or key reads as zeros and empty texts, a number out of range too. Left out, since
    no list of the vendor's has them: lines of more than 1,024 characters, sections with a name of more
    than 255, what follows after 20,000 sections. Time and memory are linear in the length.
 */
class VersionList
{
  public:
    /// No list: nothing is known of any program.
    VersionList() = default;

    /// Of a file's bytes: ANSI, or UTF-16 with its mark.
    explicit VersionList(std::string_view bytes);

    /// Whether it is a list at all, rather than what a server or a portal says in its place: it has a
    /// "Major" for at least one program of the catalogue.
    [[nodiscard]] bool IsList() const { return m_isList; }

    /// Sets what the list says of the row's program: its latest version and its setup's address.
    void Read(ProgramRow& row) const;

    /// The whole list, for what else it holds.
    [[nodiscard]] const SettingsSnapshot& Sections() const { return m_sections; }

    /// Why parts of it were left out: what no list has once for each kind, and of each program three
    /// numbers and an address at most.
    [[nodiscard]] const std::vector<std::string>& Complaints() const { return m_complaints; }

  private:
    struct Listed
    {
        ProgramVersion latest;
        std::string demoAddress;
    };

    [[nodiscard]] std::int32_t Number(std::string_view program, std::string_view key);
    [[nodiscard]] std::string DemoAddress(std::string_view program);

    SettingsSnapshot m_sections;
    std::array<Listed, kProgramCount> m_programs;
    bool m_isList = false;
    std::vector<std::string> m_complaints;
};

} // namespace velmo
