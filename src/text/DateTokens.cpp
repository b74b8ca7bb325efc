#include "text/DateTokens.h"

#include "text/TextCase.h"

#include <algorithm>
#include <array>
#include <string>

namespace velmo
{
namespace
{

using Kind = DateToken::Kind;

constexpr int kTooLarge = 10'000;

constexpr std::array<std::string_view, 12> kMonths = {
    "january", "february", "march",     "april",   "may",      "june",
    "july",    "august",   "september", "october", "november", "december"};
constexpr std::array<std::string_view, 7> kWeekdays = {"sunday",   "monday", "tuesday", "wednesday",
                                                       "thursday", "friday", "saturday"};
constexpr std::array<std::string_view, 4> kMeridiems = {"am", "a", "pm", "p"};

/// Place of a name that is written in full or as its first three letters.
template <std::size_t N>
std::optional<int> PlaceOf(std::string_view word, const std::array<std::string_view, N>& names)
{
    const auto found = std::ranges::find_if(
        names, [word](std::string_view name) { return name == word || name.substr(0, 3) == word; });
    return found == names.end() ? std::nullopt
                                : std::optional(static_cast<int>(found - names.begin()));
}

std::optional<DateToken> Word(std::string_view text)
{
    const std::string word = LowerCase(text);
    if (const auto month = PlaceOf(word, kMonths))
    {
        return DateToken{Kind::Month, *month + 1};
    }
    if (PlaceOf(word, kWeekdays))
    {
        return DateToken{Kind::Weekday};
    }
    if (const auto meridiem = PlaceOf(word, kMeridiems))
    {
        return DateToken{Kind::Meridiem, *meridiem / 2};
    }
    return std::nullopt;
}

std::optional<DateToken> Mark(char c)
{
    switch (c)
    {
    case '/':
    case '-':
        return DateToken{Kind::DateMark};
    case ':':
    case '.':
        return DateToken{Kind::TimeMark, c};
    case ',':
        return DateToken{Kind::Comma};
    default:
        return std::nullopt;
    }
}

DateToken Number(std::string_view digits)
{
    int number = 0;
    for (const char digit : digits)
    {
        number = std::min(number * 10 + (digit - '0'), kTooLarge);
    }
    return {Kind::Number, number};
}

/// How many bytes of blanks the text starts with; the no-break space of lists made with an office
/// program counts, and the wide one of East Asian keyboards.
std::size_t Blanks(std::string_view text)
{
    constexpr std::array<std::string_view, 8> kBlanks = {" ",  "\t", "\r",       "\n",
                                                         "\v", "\f", "\xC2\xA0", "\xE3\x80\x80"};
    std::size_t length = 0;
    for (;;)
    {
        const auto blank = std::ranges::find_if(
            kBlanks, [rest = text.substr(length)](auto b) { return rest.starts_with(b); });
        if (blank == kBlanks.end())
        {
            return length;
        }
        length += blank->size();
    }
}

std::string_view While(std::string_view text, bool (*belongs)(char))
{
    const auto end = std::ranges::find_if_not(text, belongs);
    return text.substr(0, static_cast<std::size_t>(end - text.begin()));
}

} // namespace

std::optional<std::vector<DateToken>> DateTokens(std::string_view text)
{
    std::vector<DateToken> tokens;
    for (text.remove_prefix(Blanks(text)); !text.empty(); text.remove_prefix(Blanks(text)))
    {
        std::size_t length = 1;
        std::optional<DateToken> token;
        if (IsDigit(text.front()))
        {
            length = While(text, IsDigit).size();
            token = Number(text.substr(0, length));
        }
        else if (IsLetter(text.front()))
        {
            length = While(text, IsLetter).size();
            token = Word(text.substr(0, length));
        }
        else
        {
            token = Mark(text.front());
        }
        if (!token)
        {
            return std::nullopt;
        }
        tokens.push_back(*token);
        text.remove_prefix(length);
    }
    return tokens;
}

} // namespace velmo
