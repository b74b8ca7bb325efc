#include "companion/LintedList.h"

#include "news/Headlines.h"
#include "platform/AnsiText.h"
#include "text/TextCase.h"
#include "text/TextLine.h"

#include <algorithm>
#include <map>
#include <optional>
#include <utility>

namespace velmo::companion
{
namespace
{

constexpr std::size_t kLongestLine = 1'024;

/// The line where the name was before, or nothing; from then on it was here.
std::optional<std::size_t> LineBefore(std::map<std::string, std::size_t>& seen,
                                      std::string_view name, std::size_t line)
{
    const auto [at, isNew] = seen.emplace(LowerCase(name), line);
    return isNew ? std::nullopt : std::optional(at->second);
}

std::string Twice(std::string_view name, std::size_t before)
{
    return std::string(name) + " stands in line " + std::to_string(before) +
           " already: this one does not count";
}

} // namespace

const ListedLine* ListedSection::Find(std::string_view key) const
{
    const auto found = std::ranges::find_if(
        lines, [&](const ListedLine& each) { return EqualInAnyCase(each.key, key); });
    return found == lines.end() ? nullptr : &*found;
}

LintedList::LintedList(std::string file, std::string bytes)
    : m_file(std::move(file)), m_bytes(std::move(bytes)), m_text(platform::FromFileBytes(m_bytes))
{
    std::string_view rest = m_text;
    for (std::size_t number = 1; !rest.empty(); ++number)
    {
        Take(TakeLine(rest), number);
    }
    CheckSections();
}

const ListedSection* LintedList::Find(std::string_view name) const
{
    const auto found = std::ranges::find_if(m_sections, [&](const ListedSection& section) {
        return EqualInAnyCase(section.name, name);
    });
    return found == m_sections.end() ? nullptr : &*found;
}

void LintedList::Tell(std::size_t line, std::string what)
{
    m_faults.push_back({m_file, line, std::move(what)});
}

std::vector<ListFault> LintedList::Faults() const
{
    std::vector<ListFault> faults = m_faults;
    std::ranges::stable_sort(faults, {}, &ListFault::line);
    return faults;
}

void LintedList::Take(std::string_view whole, std::size_t number)
{
    const std::string_view line = Trimmed(whole, " \t");
    if (whole.size() > kLongestLine)
    {
        Tell(number, "The line has more than 1,024 characters: it is left out");
    }
    if (line.empty() || line.front() == ';')
    {
        return;
    }
    if (line.front() == '[')
    {
        m_sections.push_back({number, Trimmed(line.substr(1, line.find(']') - 1)), {}});
    }
    else if (m_sections.empty())
    {
        Tell(number, "The line stands in no section");
    }
    else
    {
        const std::size_t equals = line.find('=');
        const bool isEntry = equals != std::string_view::npos;
        m_sections.back().lines.push_back({number, line,
                                           isEntry ? Trimmed(line.substr(0, equals)) : "",
                                           isEntry ? Trimmed(line.substr(equals + 1)) : ""});
    }
}

void LintedList::CheckSections()
{
    std::map<std::string, std::size_t> seen;
    for (const ListedSection& section : m_sections)
    {
        if (const auto before = LineBefore(seen, section.name, section.line))
        {
            Tell(section.line, Twice("[" + std::string(section.name) + "]", *before));
        }
        if (!EqualInAnyCase(section.name, kHeadlinesSection))
        {
            CheckEntries(section);
        }
    }
}

void LintedList::CheckEntries(const ListedSection& section)
{
    std::map<std::string, std::size_t> seen;
    for (const ListedLine& line : section.lines)
    {
        if (line.key.empty())
        {
            Tell(line.line, "The line is neither a section nor a value");
        }
        else if (const auto before = LineBefore(seen, line.key, line.line))
        {
            Tell(line.line, Twice(line.key, *before));
        }
    }
}

} // namespace velmo::companion
