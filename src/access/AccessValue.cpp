#include "access/AccessValue.h"

#include "access/AccessText.h"
#include "platform/ErrorCode.h"
#include "text/UnitedStatesDate.h"

#include <array>
#include <bit>
#include <charconv>
#include <cmath>
#include <unordered_set>

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
std::string DateText(double date)
{
    constexpr double kYear100 = -657'434;
    constexpr double kYear10000 = 2'958'466;
    if (!(date > kYear100 - 1 && date < kYear10000))
    {
        ThrowDamaged("a date is out of range");
    }
    const double day = std::trunc(date);
    const double seconds = std::round(std::abs(date - day) * 86'400);
    return FormatDateAndTime({kDayZero + std::chrono::days(static_cast<int>(day)),
                              std::chrono::seconds(static_cast<int>(seconds))});
}

constexpr std::size_t kHeadSize = 12;
constexpr std::size_t kPointer = 4;
constexpr std::uint32_t kInline = 0x8000'0000;
constexpr std::uint32_t kInOneRow = 0x4000'0000;
constexpr std::uint32_t kLength = 0x3FFF'FFFF;

constexpr const char* kLostText = "a long text is not where it should be";

ByteView Piece(AccessPages& pages, AccessRowPointer place)
{
    return pages.Row(pages.DataPage(place.page, AccessPages::kLongValues), place.row, kLostText)
        .bytes;
}

/// Each piece starts with where the next one is.
std::string ChainedText(AccessPages& pages, std::uint32_t place, std::size_t length)
{
    std::string bytes;
    std::unordered_set<std::uint32_t> visited;
    while (bytes.size() < length)
    {
        if (place == 0 || !visited.insert(place).second)
        {
            ThrowDamaged(kLostText);
        }
        const ByteView piece = Piece(pages, AccessRowPointer(place));
        bytes += piece.From(4).Chars();
        place = piece.U32(0);
    }
    bytes.resize(length);
    return AccessText(ByteView(std::as_bytes(std::span(bytes))), pages.Format());
}

/// A memo, of which a row holds a head of 12 bytes: the text follows it, or lies in one row of a page
/// of its own, or in a chain of such rows.
std::string LongText(AccessPages& pages, ByteView stored)
{
    const std::size_t length = stored.U32(0) & kLength;
    if (stored.Size() < kHeadSize || length > pages.FileSize())
    {
        ThrowDamaged(kLostText);
    }
    const std::uint32_t place = stored.U32(kPointer);
    if ((stored.U32(0) & (kInline | kInOneRow)) == 0)
    {
        return ChainedText(pages, place, length);
    }
    const bool isInline = (stored.U32(0) & kInline) != 0;
    const ByteView row = isInline ? stored.From(kHeadSize) : Piece(pages, AccessRowPointer(place));
    const auto bytes = row.Part(0, length);
    if (!bytes)
    {
        ThrowDamaged(kLostText);
    }
    return AccessText(*bytes, pages.Format());
}

std::string Text(AccessPages& pages, AccessType type, ByteView stored)
{
    if (const std::size_t size = SizeOf(type); size != 0 && stored.Size() != size)
    {
        ThrowDamaged("a field is of the wrong size");
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
        return LongText(pages, stored);
    default:
        ThrowAccessFault(error_code::kInvalidData, "The field is of a type that has no text (" +
                                                       std::to_string(static_cast<int>(type)) +
                                                       ").");
    }
}

} // namespace

std::optional<std::string> AccessValue(AccessPages& pages, const AccessRow& row,
                                       const AccessColumn& column)
{
    const bool present = row.IsPresent(column);
    if (column.type == AccessType::Boolean)
    {
        return present ? "True" : "False";
    }
    return present ? std::optional(Text(pages, column.type, row.Field(column))) : std::nullopt;
}

} // namespace velmo
