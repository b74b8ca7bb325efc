#include "updates/VersionList.h"

#include "catalogue/ProgramCatalogue.h"
#include "platform/ProfileBytes.h"
#include "text/TextCase.h"
#include "updates/ProgramRow.h"

#include <algorithm>
#include <set>
#include <stdexcept>

namespace velmo
{
namespace
{

constexpr std::size_t kMostSections = 20'000;
constexpr std::size_t kLongestLine = 1'024;
constexpr std::size_t kLongestName = 255;
constexpr std::string_view kDemoAddress = "Demo URL";

bool IsHeader(std::string_view line)
{
    return Trimmed(line).starts_with('[');
}

/// Takes a text's lines one by one and keeps those that a list of the vendor's may have.
class BoundedText
{
  public:
    explicit BoundedText(std::string_view text)
    {
        m_kept.reserve(text.size());
        while (!text.empty() && m_sections <= kMostSections)
        {
            const std::size_t end = std::min(text.find_first_of("\r\n"), text.size());
            Take(text.substr(0, end));
            text.remove_prefix(std::min(end + 1, text.size()));
        }
    }

    std::string TakeText() { return std::move(m_kept); }
    std::vector<std::string> Complaints() const
    {
        return {m_complaints.begin(), m_complaints.end()};
    }

  private:
    void Take(std::string_view line)
    {
        if (IsHeader(line) && ++m_sections > kMostSections)
        {
            m_complaints.insert("What follows after 20,000 sections is left out");
            return;
        }
        if (IsHeader(line))
        {
            // Without the two brackets.
            m_leavesOut = Trimmed(line).size() > kLongestName + 2;
        }
        if (m_leavesOut)
        {
            m_complaints.insert("A section with a name of more than 255 characters is left out");
        }
        else if (line.size() > kLongestLine)
        {
            m_complaints.insert("A line of more than 1,024 characters is left out");
        }
        else
        {
            m_kept.append(line).append("\n");
        }
    }

    std::string m_kept;
    std::set<std::string> m_complaints;
    std::size_t m_sections = 0;
    bool m_leavesOut = false; ///< The section that is being read.
};

} // namespace

VersionList::VersionList(std::string_view bytes)
{
    const platform::ProfileBytes profile(bytes);
    BoundedText text(profile.Text());
    m_complaints = text.Complaints();
    m_sections = SettingsSnapshot::Parse(profile.FileBytes(text.TakeText()));
    for (std::int32_t index = 0; index < kProgramCount; ++index)
    {
        const std::string_view program = NameOfIndex(index);
        Listed& listed = m_programs.at(static_cast<std::size_t>(index));
        m_isList = m_isList || !m_sections.String(program, "Major", "").empty();
        listed.latest.majorNumber = Number(program, "Major");
        if (listed.latest.majorNumber != 0)
        {
            listed.latest.minorNumber = Number(program, "Minor");
            listed.latest.revision = Number(program, "Revision");
        }
        listed.demoAddress = DemoAddress(program);
    }
}

std::int32_t VersionList::Number(std::string_view program, std::string_view key)
{
    try
    {
        return m_sections.Long(program, key, 0);
    }
    catch (const std::overflow_error&)
    {
        m_complaints.push_back("A number is out of range: " + std::string(program) + ", " +
                               std::string(key));
        return 0;
    }
}

std::string VersionList::DemoAddress(std::string_view program)
{
    std::string address = m_sections.String(program, kDemoAddress, "");
    for (const auto& [key, value] : m_sections.Entries(program))
    {
        if (EqualInAnyCase(key, kDemoAddress))
        {
            if (value.size() > address.size())
            {
                m_complaints.push_back("The setup's address of " + std::string(program) +
                                       " is cut, it has more than 255 characters");
            }
            break;
        }
    }
    return address;
}

void VersionList::Read(ProgramRow& row) const
{
    const Listed& listed = m_programs.at(static_cast<std::size_t>(row.index));
    row.latest = listed.latest;
    row.demoAddress = listed.demoAddress;
}

} // namespace velmo
