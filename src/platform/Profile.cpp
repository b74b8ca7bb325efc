#include "platform/Profile.h"

#include "platform/ProfileBytes.h"
#include "platform/ProfileText.h"
#include "text/TextCase.h"

#include <algorithm>
#include <unordered_map>

namespace velmo::platform
{

/// The sections are views of the text.
struct Profile::Content
{
    explicit Content(ProfileBytes fileBytes)
        : bytes(std::move(fileBytes)), sections(ProfileText::Sections(bytes.Text()))
    {
        for (const ProfileText::Section& section : sections)
        {
            bodies.emplace(FoldedCase(bytes.Outward(section.name)), section.body);
        }
    }
    Content(const Content&) = delete;
    Content& operator=(const Content&) = delete;

    ProfileBytes bytes;
    std::vector<ProfileText::Section> sections;
    std::unordered_map<std::string, std::string_view> bodies;
};

Profile::Profile(std::string_view bytes)
    : m_content(std::make_shared<const Content>(ProfileBytes(bytes)))
{}

Profile::Profile(std::string_view section, std::string_view block)
    : m_content(std::make_shared<const Content>(
          ProfileBytes::OfText(ProfileText::WithSection({}, section, block))))
{}

std::string_view Profile::BodyOf(std::string_view section) const
{
    const auto found = m_content->bodies.find(FoldedCase(Trimmed(section, ProfileText::kBlanks)));
    return found == m_content->bodies.end() ? std::string_view() : found->second;
}

std::optional<std::string> Profile::Value(std::string_view section, std::string_view key) const
{
    const ProfileBytes& bytes = m_content->bytes;
    const auto value = ProfileText::ValueIn(BodyOf(section), bytes.Inward(key));
    return value ? std::optional(bytes.Outward(*value)) : std::nullopt;
}

std::string Profile::Block(std::string_view section) const
{
    return m_content->bytes.Outward(ProfileText::BlockOf(BodyOf(section)));
}

std::vector<std::pair<std::string, std::string>> Profile::Entries(std::string_view section) const
{
    const ProfileBytes& bytes = m_content->bytes;
    std::vector<std::pair<std::string, std::string>> entries;
    for (const auto& [key, value] : ProfileText::Entries(BodyOf(section)))
    {
        entries.emplace_back(bytes.Outward(key), bytes.Outward(value));
    }
    return entries;
}

std::vector<std::string> Profile::SectionNames() const
{
    std::vector<std::string> names;
    for (const auto& [part, body] : m_content->sections)
    {
        std::string name = m_content->bytes.Outward(part);
        if (m_content->bodies.at(FoldedCase(name)).data() == body.data())
        {
            names.push_back(std::move(name));
        }
    }
    return names;
}

} // namespace velmo::platform
