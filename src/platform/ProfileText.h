#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

/**
    The text of a profile file, by the rules of Windows' private-profile functions: pure, any thread.
    Text is in any encoding that holds ASCII as it is; names are compared without regard to case. What is not written stays as it is, byte for byte; new lines end in
    CRLF. Texts to be written have no line breaks and no NUL.
 */
namespace velmo::platform::ProfileText
{

/// What is dropped at both ends of names and values. The end-of-file mark of old editors is one.
inline constexpr std::string_view kBlanks = " \t\v\f\x1A";

/// A section: its name without brackets, and its lines up to the next header.
struct Section
{
    std::string_view name;
    std::string_view body;
};

/// All sections in the order of the text, repeated names included.
[[nodiscard]] std::vector<Section> Sections(std::string_view text);

/// A line "key=value" without the blanks round both; @a value has no pair of quotes round it either.
struct Entry
{
    std::string_view key;
    std::string_view value;
};

/// The entries of a section's body in their order, repeated keys included.
[[nodiscard]] std::vector<Entry> Entries(std::string_view body);

/// The value of the first such key in a section's body.
[[nodiscard]] std::optional<std::string_view> ValueIn(std::string_view body, std::string_view key);

/// The body's lines but for comments and empty ones, each ended by a NUL. Entries are "key=value"
/// without blanks round either, quotes kept; other lines stay, blanks at their ends aside.
[[nodiscard]] std::string BlockOf(std::string_view body);

/// The value of the first such key in the first such section.
[[nodiscard]] std::optional<std::string_view> Value(std::string_view text, std::string_view section,
                                                    std::string_view key);

/// The text with the value in the key's own line, else after the section's last line, else in a new
/// section at the end.
[[nodiscard]] std::string WithValue(std::string_view text, std::string_view section,
                                    std::string_view key, std::string_view value);

/// The text without the key's line.
[[nodiscard]] std::string WithoutKey(std::string_view text, std::string_view section,
                                     std::string_view key);

/// The text without the section; its comment lines stay.
[[nodiscard]] std::string WithoutSection(std::string_view text, std::string_view section);

/// The text with the section's lines replaced by those of @a block, each ended by a NUL; its comment
/// lines stay.
[[nodiscard]] std::string WithSection(std::string_view text, std::string_view section,
                                      std::string_view block);

/// A value in the form that reads back as it is: in quotes when it begins or ends with a blank or is
/// in quotes itself.
[[nodiscard]] std::string Quoted(std::string_view value);

} // namespace velmo::platform::ProfileText
