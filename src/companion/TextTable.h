#pragma once

#include <string>
#include <vector>

namespace velmo::companion
{

/// Rows of text as a table with aligned columns; the first row is the header, underlined.
class TextTable
{
  public:
    /// Rows may have different lengths.
    void Add(std::vector<std::string> row) { m_rows.push_back(std::move(row)); }

    /// The table, each line ended by a line feed, without blanks at line ends.
    [[nodiscard]] std::string Text() const;

  private:
    std::vector<std::vector<std::string>> m_rows;
};

} // namespace velmo::companion
