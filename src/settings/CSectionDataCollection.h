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

/// What a line of a settings file is, blanks kept as they are.
struct SectionLine
{
    enum class Kind
    {
        Header, ///< It has both a "[" and a "]"; the name is the line without its ends' characters.
        Entry,  ///< Any other line with a "=": name before the first one, value after it.
        Other,
    };

    Kind kind = Kind::Other;
    std::string_view name;
    std::string_view value;
};

/// Takes the first line off; LF or CRLF ends it. The views are of the text.
[[nodiscard]] SectionLine TakeSectionLine(std::string_view& text);

/**
    The sections of a whole settings file, from its text in UTF-8 (platform::FromFileBytes), line by
    line (TakeSectionLine). Left out: other lines, entries before the first section, and what has a
    name that is there already, be it an entry or a whole section. Linear in the text's length.
 */
[[nodiscard]] CSectionDataCollection LoadSectionData(std::string_view text);

} // namespace velmo
