#include "text/UnitedStatesDate.h"

#include "text/DateTokens.h"

#include <array>
#include <cstdio>
#include <span>

namespace velmo
{
namespace
{

using Kind = DateToken::Kind;
using std::chrono::year;
using std::chrono::year_month_day;

/// The parts of a text that make up its date: numbers and at most one month, in their order.
struct DateParts
{
    std::array<int, 3> numbers{};
    std::size_t count = 0;
    int monthName = 0;           ///< 1 to 12; 0 = none.
    std::size_t beforeMonth = 0; ///< How many of the numbers stand before the month's name.
};

struct TimeParts
{
    std::array<int, 3> numbers{}; ///< Hour, minute, second.
    std::size_t count = 0;
    std::optional<int> meridiem; ///< 0 = AM, 1 = PM.
    bool isAfterComma = false;
    bool hasPoint = false; ///< "1.30" and the like.
};

/// Sorts tokens into a date's and a time's. A number belongs to the time when ":" or "." joins it
/// to another or AM or PM follows.
class PartsReader
{
  public:
    explicit PartsReader(std::span<const DateToken> tokens) : m_tokens(tokens) {}

    /// False when the tokens do not make a date, a time or both.
    [[nodiscard]] bool Read()
    {
        for (bool isAfterDatePart = false; m_next < m_tokens.size();)
        {
            const Kind kind = KindAt(m_next);
            if (kind == Kind::DateMark)
            {
                if (!isAfterDatePart || !DatePartFollows())
                {
                    return false;
                }
                isAfterDatePart = false;
                ++m_next;
            }
            else if (kind == Kind::Comma)
            {
                ++m_next;
            }
            else if (kind == Kind::Weekday)
            {
                isAfterDatePart = false;
                ++m_next;
            }
            else
            {
                const bool isTime = kind == Kind::Number && IsTimeKind(KindAt(m_next + 1));
                if (isTime ? !ReadTime() : !ReadDatePart())
                {
                    return false;
                }
                isAfterDatePart = !isTime;
            }
        }
        return KindAt(m_tokens.size() - 1) != Kind::Comma;
    }

    [[nodiscard]] const DateParts& Date() const { return m_date; }
    [[nodiscard]] const TimeParts& Time() const { return m_time; }

  private:
    /// Comma stands for what is past the end: it joins nothing.
    [[nodiscard]] Kind KindAt(std::size_t index) const
    {
        return index < m_tokens.size() ? m_tokens[index].kind : Kind::Comma;
    }

    static bool IsTimeKind(Kind kind) { return kind == Kind::TimeMark || kind == Kind::Meridiem; }

    /// Whether the mark at hand joins a number or month of the date, commas between them aside.
    [[nodiscard]] bool DatePartFollows() const
    {
        std::size_t i = m_next + 1;
        while (i < m_tokens.size() && KindAt(i) == Kind::Comma)
        {
            ++i;
        }
        return KindAt(i) == Kind::Month ||
               (KindAt(i) == Kind::Number && !IsTimeKind(KindAt(i + 1)));
    }

    [[nodiscard]] bool ReadDatePart()
    {
        const DateToken token = m_tokens[m_next++];
        if (m_isDateOver)
        {
            return false;
        }
        if (token.kind == Kind::Month && m_date.monthName == 0)
        {
            m_date.monthName = token.value;
            m_date.beforeMonth = m_date.count;
            return true;
        }
        if (token.kind == Kind::Number && m_date.count < m_date.numbers.size())
        {
            m_date.numbers[m_date.count++] = token.value;
            return true;
        }
        return false;
    }

    [[nodiscard]] bool ReadTime()
    {
        if (m_time.count != 0)
        {
            return false;
        }
        // The time may stand before or after the date, not in its middle.
        m_isDateOver = m_date.count != 0 || m_date.monthName != 0;
        m_time.isAfterComma = m_next > 0 && KindAt(m_next - 1) == Kind::Comma;
        m_time.numbers[m_time.count++] = m_tokens[m_next++].value;
        while (KindAt(m_next) == Kind::TimeMark)
        {
            if (KindAt(m_next + 1) != Kind::Number || m_time.count == m_time.numbers.size())
            {
                return false;
            }
            m_time.hasPoint |= m_tokens[m_next].value == '.';
            m_time.numbers[m_time.count++] = m_tokens[m_next + 1].value;
            m_next += 2;
        }
        if (KindAt(m_next) == Kind::Meridiem)
        {
            m_time.meridiem = m_tokens[m_next++].value;
        }
        return KindAt(m_next) != Kind::DateMark;
    }

    std::span<const DateToken> m_tokens;
    std::size_t m_next = 0;
    bool m_isDateOver = false;
    DateParts m_date;
    TimeParts m_time;
};

/// What each of a date's numbers stands for.
enum class Field
{
    None,
    Year,
    Month,
    Day
};

/// One way to read a date's numbers, tried in this order; the first that makes a date is taken.
struct Order
{
    std::size_t count;
    bool hasMonthName;
    std::size_t beforeMonth; ///< Only with a month's name.
    std::array<Field, 3> fields;
};

constexpr std::array kOrders = {
    Order{2, false, 0, {Field::Month, Field::Day}},
    Order{2, false, 0, {Field::Day, Field::Month}},
    Order{2, false, 0, {Field::Month, Field::Year}},
    Order{2, false, 0, {Field::Year, Field::Month}},
    Order{3, false, 0, {Field::Month, Field::Day, Field::Year}},
    Order{3, false, 0, {Field::Year, Field::Month, Field::Day}},
    Order{3, false, 0, {Field::Day, Field::Month, Field::Year}},
    Order{3, false, 0, {Field::Year, Field::Day, Field::Month}},
    Order{1, true, 0, {Field::Day}},
    Order{1, true, 0, {Field::Year}},
    Order{1, true, 1, {Field::Day}},
    Order{1, true, 1, {Field::Year}},
    Order{2, true, 0, {Field::Day, Field::Year}},
    Order{2, true, 1, {Field::Day, Field::Year}},
    Order{2, true, 1, {Field::Year, Field::Day}},
    Order{2, true, 2, {Field::Year, Field::Day}},
};

/// A year of one or two digits is one of the hundred years that end with 2049. Nothing past 9999.
std::optional<year> FullYear(int number)
{
    constexpr int kLastShortYear = 49;
    if (number >= 10'000)
    {
        return std::nullopt;
    }
    return year(number >= 100 ? number : number + (number > kLastShortYear ? 1900 : 2000));
}

std::optional<year_month_day> InOrder(const DateParts& parts, const Order& order, year thisYear)
{
    std::optional<year> dateYear = thisYear;
    int month = parts.monthName;
    int day = 1;
    for (std::size_t i = 0; i < parts.count; ++i)
    {
        const int number = parts.numbers[i];
        switch (order.fields[i])
        {
        case Field::Year:
            dateYear = FullYear(number);
            break;
        case Field::Month:
            month = number;
            break;
        case Field::Day:
            day = number;
            break;
        case Field::None:
            break;
        }
    }
    // The calendar's own types keep no more than a byte of a month or day.
    if (!dateYear || month > 12 || day > 31)
    {
        return std::nullopt;
    }
    const auto date = *dateYear / month / day;
    return date.ok() ? std::optional(date) : std::nullopt;
}

/// A year that stands before the month's name is none when a comma follows the day, as it does in
/// "1999 January 3, 9AM": there the system wants the year behind it.
bool IsSpoiltByComma(const Order& order, const TimeParts& time)
{
    return order.hasMonthName && order.count == 2 && order.fields[0] == Field::Year &&
           time.isAfterComma;
}

std::optional<year_month_day> DateOf(const DateParts& parts, const TimeParts& time, year thisYear)
{
    for (const Order& order : kOrders)
    {
        if (order.count != parts.count || order.hasMonthName != (parts.monthName != 0) ||
            (order.hasMonthName && order.beforeMonth != parts.beforeMonth) ||
            IsSpoiltByComma(order, time))
        {
            continue;
        }
        if (const auto date = InOrder(parts, order, thisYear))
        {
            return date;
        }
    }
    return std::nullopt;
}

std::optional<std::chrono::seconds> TimeOf(const TimeParts& parts)
{
    auto [hour, minute, second] = parts.numbers;
    if (hour > 23 || minute > 59 || second > 59)
    {
        return std::nullopt;
    }
    if (parts.meridiem && hour <= 12)
    {
        hour = hour % 12 + 12 * *parts.meridiem;
    }
    return std::chrono::hours(hour) + std::chrono::minutes(minute) + std::chrono::seconds(second);
}

} // namespace

std::optional<DateAndTime> ParseDate(std::string_view text, year thisYear)
{
    const auto tokens = DateTokens(text);
    if (!tokens || tokens->empty())
    {
        return std::nullopt;
    }
    PartsReader parts(*tokens);
    if (!parts.Read())
    {
        return std::nullopt;
    }
    const bool hasDate = parts.Date().count != 0 || parts.Date().monthName != 0;
    const bool hasTime = parts.Time().count != 0;
    const auto date =
        hasDate ? DateOf(parts.Date(), parts.Time(), thisYear) : year_month_day(kDayZero);
    const auto time = TimeOf(parts.Time());
    // "0.0" is the number.
    const bool isZero = !hasDate && parts.Time().hasPoint && !parts.Time().meridiem &&
                        time == std::chrono::seconds(0);
    if (!(hasDate || hasTime) || !date || !time || isZero)
    {
        return std::nullopt;
    }
    return DateAndTime{std::chrono::sys_days(*date), *time};
}

std::int64_t CalendarDaysBetween(const DateAndTime& from, const DateAndTime& to)
{
    return (to.day - from.day).count();
}

std::string FormatDate(std::chrono::sys_days day)
{
    const year_month_day date(day);
    return std::to_string(static_cast<unsigned>(date.month())) + '/' +
           std::to_string(static_cast<unsigned>(date.day())) + '/' +
           std::to_string(static_cast<int>(date.year()));
}

std::string FormatDateAndTime(const DateAndTime& date)
{
    const auto wholeDays = std::chrono::floor<std::chrono::days>(date.timeOfDay);
    const std::string dayText = FormatDate(date.day + wholeDays);
    const std::chrono::hh_mm_ss time(date.timeOfDay - wholeDays);
    if (time.to_duration() == std::chrono::seconds(0))
    {
        return dayText;
    }
    const auto hour = static_cast<int>(time.hours().count());
    std::array<char, 24> text{};
    std::snprintf(text.data(), text.size(), " %d:%02d:%02d %s", (hour + 11) % 12 + 1,
                  static_cast<int>(time.minutes().count()),
                  static_cast<int>(time.seconds().count()), hour < 12 ? "AM" : "PM");
    return dayText + text.data();
}

} // namespace velmo
