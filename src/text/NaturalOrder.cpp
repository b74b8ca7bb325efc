#include "text/NaturalOrder.h"

#include "text/TextCase.h"

#include <algorithm>

namespace velmo
{
namespace
{

int Order(char c)
{
    return static_cast<unsigned char>(UpperCase(c));
}

/// Takes the run of digits off the front of @a text, without its leading zeros.
std::string_view TakeNumber(std::string_view& text)
{
    const auto end = std::find_if_not(text.begin(), text.end(), IsDigit);
    std::string_view number = text.substr(0, static_cast<std::size_t>(end - text.begin()));
    text.remove_prefix(number.size());
    number.remove_prefix(std::min(number.find_first_not_of('0'), number.size()));
    return number;
}

int CompareNumbers(std::string_view a, std::string_view b)
{
    if (a.size() != b.size())
    {
        return a.size() < b.size() ? -1 : 1;
    }
    return a.compare(b);
}

} // namespace

int CompareNaturally(std::string_view a, std::string_view b)
{
    while (!a.empty() && !b.empty())
    {
        if (IsDigit(a.front()) && IsDigit(b.front()))
        {
            const std::string_view first = TakeNumber(a);
            if (const int difference = CompareNumbers(first, TakeNumber(b)); difference != 0)
            {
                return difference;
            }
            continue;
        }
        if (const int difference = Order(a.front()) - Order(b.front()); difference != 0)
        {
            return difference;
        }
        a.remove_prefix(1);
        b.remove_prefix(1);
    }
    return static_cast<int>(!a.empty()) - static_cast<int>(!b.empty());
}

} // namespace velmo
