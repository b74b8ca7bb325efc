#include "text/LenientNumber.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <limits>
#include <stdexcept>

namespace velmo
{
namespace
{

constexpr std::int64_t kManyDigits = std::numeric_limits<std::int32_t>::max();

/// What becomes of a number that the conversion knows but that does not fit a double. Whether it is too
/// large or too small shows in the place of its first digit that counts.
double OutOfRange(std::string_view number)
{
    constexpr double kInfinity = std::numeric_limits<double>::infinity();
    const std::string_view digits = number.substr(0, number.find_first_of("eE"));
    const std::size_t point = std::min(digits.find('.'), digits.size());
    auto place = static_cast<std::int64_t>(point - digits.find_first_of("123456789"));
    if (digits.size() < number.size())
    {
        std::string_view exponent = number.substr(digits.size() + 1);
        exponent.remove_prefix(exponent.starts_with('+') ? 1 : 0);
        std::int64_t power = 0;
        const char* end = exponent.data() + exponent.size();
        if (std::from_chars(exponent.data(), end, power).ec != std::errc())
        {
            return exponent.starts_with('-') ? 0.0 : kInfinity;
        }
        place = std::clamp<std::int64_t>(power, -kManyDigits, kManyDigits) + place;
    }
    return place > 0 ? kInfinity : 0.0;
}

double Magnitude(std::string_view text)
{
    // The conversion would also take "inf" and "nan".
    if (text.find_first_of("0123456789.") != 0)
    {
        return 0;
    }
    double number = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    const auto length = static_cast<std::size_t>(end - text.data());
    return error == std::errc::result_out_of_range ? OutOfRange(text.substr(0, length)) : number;
}

template <typename Integer>
Integer Rounded(double number)
{
    const double whole = std::nearbyint(number);
    // Also false for an infinity.
    if (whole >= std::numeric_limits<Integer>::min() &&
        whole <= std::numeric_limits<Integer>::max())
    {
        return static_cast<Integer>(whole);
    }
    throw std::overflow_error("Overflow");
}

} // namespace

double LenientNumber(std::string_view text)
{
    std::string_view number = text.substr(std::min(text.find_first_not_of(" \t\r\n"), text.size()));
    const bool isNegative = number.starts_with('-');
    if (isNegative || number.starts_with('+'))
    {
        number.remove_prefix(1);
    }
    return isNegative ? -Magnitude(number) : Magnitude(number);
}

std::int16_t RoundedTo16Bits(double number)
{
    return Rounded<std::int16_t>(number);
}

std::int32_t RoundedTo32Bits(double number)
{
    return Rounded<std::int32_t>(number);
}

} // namespace velmo
