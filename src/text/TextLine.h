#pragma once

#include <algorithm>
#include <string_view>

namespace velmo
{

/// The first line of @a text, without its LF or CRLF; the text loses it. A last line needs no end.
[[nodiscard]] inline std::string_view TakeLine(std::string_view& text)
{
    const std::size_t end = std::min(text.find('\n'), text.size());
    std::string_view line = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    if (line.ends_with('\r'))
    {
        line.remove_suffix(1);
    }
    return line;
}

} // namespace velmo
