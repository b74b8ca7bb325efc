#pragma once

#include <string>
#include <string_view>

/// Text inside the program is UTF-8; what comes from outside is made so at the edge. Any thread.
namespace velmo
{

/// What stands for text that cannot be read.
inline constexpr char32_t kReplacement = 0xFFFD;

/// Whether the byte is the first of a character's.
[[nodiscard]] constexpr bool StartsCharacter(char byte)
{
    return (static_cast<unsigned char>(byte) & 0xC0U) != 0x80U;
}

[[nodiscard]] std::size_t CharacterCount(std::string_view text);

/// The first characters, @a most of them at most.
[[nodiscard]] std::string_view FirstCharacters(std::string_view text, std::size_t most);

[[nodiscard]] bool IsValidUtf8(std::string_view text);

/// The text with kReplacement in the place of each control character, those past U+007F too: nothing
/// that could move a terminal's cursor or break a line of the log.
[[nodiscard]] std::string WithoutControls(std::string_view text);

/// The text with kReplacement in the place of each sequence of bytes that is ill-formed.
[[nodiscard]] std::string ValidUtf8(std::string_view text);

/// The text's characters; kReplacement for what is ill-formed.
[[nodiscard]] std::u32string CodePoints(std::string_view text);

/// @a c is no half of a surrogate pair and at most U+10FFFF.
void AppendCodePoint(std::string& text, char32_t c);

} // namespace velmo
