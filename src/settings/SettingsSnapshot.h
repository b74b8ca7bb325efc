#pragma once

#include "platform/Profile.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace velmo
{

/**
    A settings file as it was at one moment, for many questions after one reading. The readers follow
    the rules of CINIFileHandler's operations of the same kind, cuts and overflow included; what is
    missing reads as the default. A value: copies are cheap and later writes to the file don't show.
    Any thread.
 */
class SettingsSnapshot
{
  public:
    /// Holds nothing: every answer is the default.
    SettingsSnapshot() = default;
    explicit SettingsSnapshot(platform::Profile profile) : m_profile(std::move(profile)) {}

    /// Of a file's bytes: ANSI, or UTF-16 with its byte-order mark.
    [[nodiscard]] static SettingsSnapshot Parse(std::string_view bytes)
    {
        return SettingsSnapshot(platform::Profile(bytes));
    }

    /// The first 255 characters of the value.
    [[nodiscard]] std::string String(std::string_view section, std::string_view entry,
                                     std::string_view defaultText) const;

    /// True for the word "True" in any case and for a leading number other than 0.
    [[nodiscard]] bool Boolean(std::string_view section, std::string_view entry,
                               bool defaultValue) const;

    /// The leading number, rounded, a half to the even one. std::overflow_error when it does not fit.
    [[nodiscard]] std::int16_t Integer(std::string_view section, std::string_view entry,
                                       std::int16_t defaultValue) const;
    [[nodiscard]] std::int32_t Long(std::string_view section, std::string_view entry,
                                    std::int32_t defaultValue) const;

    /// The leading number under a locale's @a decimalMark (CINIFileHandler.h has the rule).
    [[nodiscard]] float Single(std::string_view section, std::string_view entry, float defaultValue,
                               char decimalMark) const;

    /// The section's lines without comments, each ended by a NUL; 32,765 characters at most.
    [[nodiscard]] std::string Section(std::string_view section) const;

    /// The names of all sections in the file's order, the first of equal ones only.
    [[nodiscard]] std::vector<std::string> SectionNames() const { return m_profile.SectionNames(); }

    /// Name and whole value of the section's entries in their order, repeated names included.
    [[nodiscard]] std::vector<std::pair<std::string, std::string>> Entries(
        std::string_view section) const
    {
        return m_profile.Entries(section);
    }

  private:
    platform::Profile m_profile;
};

} // namespace velmo
