#include "settings/LenientNumber.h"

#include <charconv>
#include <cmath>
#include <limits>
#include <stdexcept>
#include <string>

namespace velmo
{
namespace
{

std::string WithoutBlanks(std::string_view text)
{
    std::string dense(text);
    std::erase_if(dense, [](char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; });
    return dense;
}

/// A magnitude of a form that the conversion knows but that does not fit a double.
double OutOfRange(std::string_view number)
{
    const bool isTiny = number.find("e-") != std::string_view::npos ||
                        number.find("E-") != std::string_view::npos || number.front() == '0' ||
                        number.front() == '.';
    return isTiny ? 0.0 : std::numeric_limits<double>::infinity();
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
    const std::string dense = WithoutBlanks(text);
    std::string_view number = dense;
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
