#pragma once

#include <cstdint>
#include <string_view>

/// Numbers in files that people edit: read what is there, however it is followed. Any thread.
namespace velmo
{

/// The number that the text begins with: sign, digits with "." as the decimal mark, exponent ("1.5e3").
/// Blanks, tabs and line ends before it count for nothing; what follows is ignored, from a blank on too;
/// no number is 0. A number too large for its type is an infinity, however it is written.
[[nodiscard]] double LenientNumber(std::string_view text);

/// Rounded to an integer, a half to the even one. std::overflow_error when it does not fit.
[[nodiscard]] std::int16_t RoundedTo16Bits(double number);
[[nodiscard]] std::int32_t RoundedTo32Bits(double number);

} // namespace velmo
