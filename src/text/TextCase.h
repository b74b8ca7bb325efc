#pragma once

#include <string>
#include <string_view>

/// Letters, digits and blanks of names: ASCII only but where told otherwise, since names of sections,
/// keys and programs are compared the same on every machine. Any thread.
namespace velmo
{

[[nodiscard]] constexpr bool IsDigit(char c)
{
    return c >= '0' && c <= '9';
}

[[nodiscard]] constexpr char UpperCase(char c)
{
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
}

[[nodiscard]] constexpr char LowerCase(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

[[nodiscard]] constexpr bool IsLetter(char c)
{
    return LowerCase(c) >= 'a' && LowerCase(c) <= 'z';
}

[[nodiscard]] std::string UpperCase(std::string_view text);
[[nodiscard]] std::string LowerCase(std::string_view text);

/// Whether the texts are the same but for the case of letters.
[[nodiscard]] bool EqualInAnyCase(std::string_view a, std::string_view b);

/// The lower case of UTF-8 text as ANSI code pages have it, with accents, Greek and Cyrillic letters:
/// for keys, of which "Ä" and "ä" are one. Ill-formed bytes become kReplacement.
[[nodiscard]] std::string FoldedCase(std::string_view text);

/// Without the @a blanks at both ends.
[[nodiscard]] std::string_view Trimmed(std::string_view text, std::string_view blanks = " ");

} // namespace velmo
