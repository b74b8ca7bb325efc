#pragma once

#include "settings/CEntries.h"
#include "settings/KeyedCollection.h"

#include <string>
#include <string_view>

namespace velmo
{

/// One section of a settings file; the name is without its brackets.
struct CSectionData
{
    std::string Name;
    CEntries Entries;
};

/// The sections of a settings file; each one's name is its key.
class CSectionDataCollection : public KeyedCollection<CSectionData>
{
  public:
    /// The new section, without entries; nullptr when there is one of that name.
    CSectionData* Add(std::string_view name);
};

/**
    The sections of a whole settings file, from its text in UTF-8 (platform::FromFileBytes). A line
    that has both a "[" and a "]" begins a section named by the line without its first and last
    character; any other line with a "=" is an entry of the section above it. Blanks stay as they are.
    Left out: other lines, entries before the first section, and what has a name that is there
    already, be it an entry or a whole section. Linear in the text's length.
 */
[[nodiscard]] CSectionDataCollection LoadSectionData(std::string_view text);

} // namespace velmo
