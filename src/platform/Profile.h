#pragma once

#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace velmo::platform
{

/**
    What a profile file held at one moment, by the rules of PrivateProfile.h. Text is UTF-8 here;
    nothing is cut. A value: copies share what was read and cost nothing. Any thread.
 */
class Profile
{
  public:
    /// Holds nothing.
    Profile() : Profile(std::string_view()) {}

    /// Of a file's bytes: ANSI, or UTF-16 with its mark.
    explicit Profile(std::string_view bytes);

    /// Of one section alone: @a block has its lines in UTF-8, each ended by a NUL.
    Profile(std::string_view section, std::string_view block);

    /// The value of the first such key in the first such section.
    [[nodiscard]] std::optional<std::string> Value(std::string_view section,
                                                   std::string_view key) const;

    /// The section's lines without comments and empty ones, each ended by a NUL.
    [[nodiscard]] std::string Block(std::string_view section) const;

    /// Key and value of the section's entries in their order, repeated keys included.
    [[nodiscard]] std::vector<std::pair<std::string, std::string>> Entries(
        std::string_view section) const;

    /// The names of the sections in their order, the first of equal ones only.
    [[nodiscard]] std::vector<std::string> SectionNames() const;

  private:
    struct Content;

    [[nodiscard]] std::string_view BodyOf(std::string_view section) const;

    std::shared_ptr<const Content> m_content;
};

} // namespace velmo::platform
