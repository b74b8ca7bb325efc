#include "equipment/AccessValue.h"

#include "equipment/AccessLongValue.h"
#include "equipment/AccessText.h"
#include "equipment/UnitedStatesDate.h"

#include <array>
#include <bit>
#include <charconv>
#include <cmath>

namespace velmo
{
namespace
{

template <typename Number>
std::string NumberText(Number number)
{
    std::array<char, 24> text{};
    const auto end = std::to_chars(text.data(), text.data() + text.size(), number).ptr;
    return {text.data(), end};
}

std::string RealText(double number, int digits)
{
    std::array<char, 32> text{};
    const auto end = std::to_chars(text.data(), text.data() + text.size(), number,
                                   std::chars_format::general, digits)
                         .ptr;
    return {text.data(), end};
}

/// Money is stored in ten-thousandths.
std::string CurrencyText(std::int64_t amount)
{
    const std::uint64_t size =
        amount < 0 ? 0 - static_cast<std::uint64_t>(amount) : static_cast<std::uint64_t>(amount);
    std::string text = amount < 0 ? "-" : "";
    text += NumberText(size / 10'000);
    if (const std::uint64_t decimals = size % 10'000; decimals != 0)
    {
        text += '.' + NumberText(10'000 + decimals).substr(1);
        text.erase(text.find_last_not_of('0') + 1);
    }
    return text;
}

/// Days since December 30, 1899; the part after the point is the time of day, also before that day.
Result<std::string> DateText(double date)
{
    constexpr double kYear100 = -657'434;
    constexpr double kYear10000 = 2'958'466;
    if (!(date > kYear100 - 1 && date < kYear10000))
    {
        return DamagedAccessFile("a date is out of range");
    }
    const double day = std::trunc(date);
    const double seconds = std::round(std::abs(date - day) * 86'400);
    return FormatDateAndTime({kDayZero + std::chrono::days(static_cast<int>(day)),
                              std::chrono::seconds(static_cast<int>(seconds))});
}

Result<std::string> Text(AccessPages& pages, AccessType type, ByteView stored)
{
    if (const std::size_t size = SizeOf(type); size != 0 && stored.Size() != size)
    {
        return DamagedAccessFile("a field is of the wrong size");
    }
    switch (type)
    {
    case AccessType::Byte:
        return NumberText(unsigned{stored.U8(0)});
    case AccessType::Integer:
        return NumberText(static_cast<std::int16_t>(stored.U16(0)));
    case AccessType::Long:
        return NumberText(static_cast<std::int32_t>(stored.U32(0)));
    case AccessType::Currency:
        return CurrencyText(static_cast<std::int64_t>(stored.U64(0)));
    case AccessType::Single:
        return RealText(std::bit_cast<float>(stored.U32(0)), 7);
    case AccessType::Double:
        return RealText(std::bit_cast<double>(stored.U64(0)), 15);
    case AccessType::DateTime:
        return DateText(std::bit_cast<double>(stored.U64(0)));
    case AccessType::Text:
        return AccessText(stored, pages.Format());
    case AccessType::Memo:
        return AccessLongText(pages, stored);
    default:
        return AccessError(AccessErrorCode::NoText, "The field is of a type that has no text (" +
                                                        std::to_string(static_cast<int>(type)) +
                                                        ").");
    }
}

} // namespace

Result<std::optional<std::string>> AccessValue(const AccessCell& cell)
{
    const auto present = cell.row.IsPresent(cell.column);
    if (!present)
    {
        return present.Failure();
    }
    if (cell.column.type == AccessType::Boolean)
    {
        return std::optional<std::string>(present.Value() ? "True" : "False");
    }
    if (!present.Value())
    {
        return std::optional<std::string>();
    }
    const auto stored = cell.row.Field(cell.column);
    if (!stored)
    {
        return stored.Failure();
    }
    auto text = Text(cell.pages, cell.column.type, stored.Value());
    if (!text)
    {
        return text.Failure();
    }
    return std::optional(std::move(text).Value());
}

} // namespace velmo
