#include "companion/TextTable.h"

#include "text/Utf8.h"

#include <algorithm>
#include <cstddef>

namespace velmo::companion
{
namespace
{

constexpr std::size_t kGap = 2;

std::string Line(const std::vector<std::string>& cells, const std::vector<std::size_t>& widths)
{
    std::string line;
    for (std::size_t i = 0; i < cells.size(); ++i)
    {
        line += cells[i];
        line.append(widths[i] - CharacterCount(cells[i]) + kGap, ' ');
    }
    line.erase(line.find_last_not_of(' ') + 1);
    return line + "\n";
}

} // namespace

std::string TextTable::Text() const
{
    std::vector<std::size_t> widths;
    for (const auto& row : m_rows)
    {
        widths.resize(std::max(widths.size(), row.size()));
        for (std::size_t i = 0; i < row.size(); ++i)
        {
            widths[i] = std::max(widths[i], CharacterCount(row[i]));
        }
    }
    std::string text;
    for (const auto& row : m_rows)
    {
        text += Line(row, widths);
        if (&row == &m_rows.front())
        {
            std::vector<std::string> rule;
            std::transform(widths.begin(), widths.end(), std::back_inserter(rule),
                           [](std::size_t width) { return std::string(width, '-'); });
            text += Line(rule, widths);
        }
    }
    return text;
}

} // namespace velmo::companion
