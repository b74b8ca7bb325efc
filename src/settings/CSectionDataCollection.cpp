#include "settings/CSectionDataCollection.h"

#include <algorithm>

namespace velmo
{
namespace
{

/// Takes the first line off; LF or CRLF ends it.
std::string_view TakeLine(std::string_view& text)
{
    const std::string_view line = text.substr(0, text.find('\n'));
    text.remove_prefix(std::min(line.size() + 1, text.size()));
    return line.ends_with('\r') ? line.substr(0, line.size() - 1) : line;
}

bool StartsCharacter(char c)
{
    return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U;
}

std::string_view WithoutFirstAndLastCharacter(std::string_view line)
{
    line.remove_prefix(1);
    while (!line.empty() && !StartsCharacter(line.front()))
    {
        line.remove_prefix(1);
    }
    while (!line.empty() && !StartsCharacter(line.back()))
    {
        line.remove_suffix(1);
    }
    return line.substr(0, line.empty() ? 0 : line.size() - 1);
}

bool IsHeader(std::string_view line)
{
    return line.find('[') != std::string_view::npos && line.find(']') != std::string_view::npos;
}

} // namespace

CEntry* CEntries::Add(std::string_view name, std::string_view value)
{
    return KeyedCollection::Add(name, {std::string(name), std::string(value)});
}

CSectionData* CSectionDataCollection::Add(std::string_view name)
{
    return KeyedCollection::Add(name, {std::string(name), {}});
}

CSectionDataCollection LoadSectionData(std::string_view text)
{
    CSectionDataCollection sections;
    CSectionData* current = nullptr;
    while (!text.empty())
    {
        const std::string_view line = TakeLine(text);
        const std::size_t mark = line.find('=');
        if (IsHeader(line))
        {
            current = sections.Add(WithoutFirstAndLastCharacter(line));
        }
        else if (mark != std::string_view::npos && current != nullptr)
        {
            current->Entries.Add(line.substr(0, mark), line.substr(mark + 1));
        }
    }
    return sections;
}

} // namespace velmo
