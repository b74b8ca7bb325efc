#pragma once

#include "companion/ListLint.h"

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace velmo::companion
{

/// A line of a section that is no comment. The views are of the list's text.
struct ListedLine
{
    std::size_t line;
    std::string_view text;
    std::string_view key; ///< Empty without a "=".
    std::string_view value;
};

struct ListedSection
{
    std::size_t line;
    std::string_view name;
    std::vector<ListedLine> lines;

    /// The first line of that key, in any case; nullptr when there is none.
    [[nodiscard]] const ListedLine* Find(std::string_view key) const;
};

/// A list with the places of its lines, and what is found in it.
class LintedList
{
  public:
    /// Finds what is wrong with the form: sections and keys that come twice (but for headlines), lines that
    /// are neither or too long.
    LintedList(std::string file, std::string bytes);

    LintedList(const LintedList&) = delete;
    LintedList& operator=(const LintedList&) = delete;

    [[nodiscard]] const std::string& Bytes() const { return m_bytes; }
    [[nodiscard]] const std::vector<ListedSection>& Sections() const { return m_sections; }

    /// The first section of that name, in any case; nullptr when there is none.
    [[nodiscard]] const ListedSection* Find(std::string_view name) const;

    void Tell(std::size_t line, std::string what);

    /// What was told, in the order of the lines.
    [[nodiscard]] std::vector<ListFault> Faults() const;

  private:
    void Take(std::string_view whole, std::size_t number);
    void CheckSections();
    void CheckEntries(const ListedSection& section);

    std::string m_file;
    std::string m_bytes;
    std::string m_text; ///< In UTF-8.
    std::vector<ListedSection> m_sections;
    std::vector<ListFault> m_faults;
};

} // namespace velmo::companion
