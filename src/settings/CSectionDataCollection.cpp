#include "settings/CSectionDataCollection.h"

#include "text/TextLine.h"
#include "text/Utf8.h"

namespace velmo
{
namespace
{

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

SectionLine TakeSectionLine(std::string_view& text)
{
    const std::string_view line = TakeLine(text);
    if (IsHeader(line))
    {
        return {SectionLine::Kind::Header, WithoutFirstAndLastCharacter(line), {}};
    }
    const std::size_t mark = line.find('=');
    if (mark == std::string_view::npos)
    {
        return {};
    }
    return {SectionLine::Kind::Entry, line.substr(0, mark), line.substr(mark + 1)};
}

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
        const SectionLine line = TakeSectionLine(text);
        if (line.kind == SectionLine::Kind::Header)
        {
            current = sections.Add(line.name);
        }
        else if (line.kind == SectionLine::Kind::Entry && current != nullptr)
        {
            current->Entries.Add(line.name, line.value);
        }
    }
    return sections;
}

} // namespace velmo
