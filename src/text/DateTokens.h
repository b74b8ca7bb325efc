#pragma once

#include <optional>
#include <string_view>
#include <vector>

namespace velmo
{

/// A word, number or mark of a date's text.
struct DateToken
{
    enum class Kind
    {
        Number,
        Month,
        Weekday,
        Meridiem,
        DateMark, ///< "/" or "-".
        TimeMark, ///< ":" or ".".
        Comma
    };

    Kind kind{};
    int value =
        0; ///< The number (10,000 stands for all larger ones); month 1 to 12; 0 = AM, 1 = PM; the mark.
};

/// Takes a date's text apart; blanks vanish. Nothing for words and characters that no date has.
[[nodiscard]] std::optional<std::vector<DateToken>> DateTokens(std::string_view text);

} // namespace velmo
