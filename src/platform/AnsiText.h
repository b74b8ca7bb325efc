#pragma once

#include <string>
#include <string_view>

/**
    Text of the vendor's files. Inside the program all text is UTF-8; files are in the machine's
    ANSI code page (Windows' own there, 1252 in the native build), or UTF-16 little-endian or UTF-8
    with a byte-order mark. Conversion happens here, at the file's edge. Any thread.
 */
namespace velmo::platform
{

/// What a file in UTF-8 begins with.
inline constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";

/// UTF-8 of ANSI bytes. A byte without a meaning becomes U+FFFD; nothing is dropped.
[[nodiscard]] std::string FromAnsi(std::string_view bytes);

/// ANSI bytes of UTF-8 text. What the code page does not have, or what is not UTF-8, becomes "?".
[[nodiscard]] std::string ToAnsi(std::string_view text);

/// The same, but a character that the code page does not have becomes the nearest one where there is
/// one: "\u0106" reads "C". For texts to show; no name of a file or key, which would become another.
[[nodiscard]] std::string ToNearestAnsi(std::string_view text);

/// UTF-8 of UTF-16LE bytes (without mark). A lone surrogate or half unit becomes U+FFFD.
[[nodiscard]] std::string FromUtf16(std::string_view bytes);

/// UTF-8 of a whole file: UTF-16LE when it starts with that mark, UTF-8 when with its mark,
/// else ANSI. The mark itself is not part of the result.
[[nodiscard]] std::string FromFileBytes(std::string_view bytes);

} // namespace velmo::platform
