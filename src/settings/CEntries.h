#pragma once

#include "settings/KeyedCollection.h"

#include <string>
#include <string_view>

namespace velmo
{

/// One line of a settings file: what is before its first "=" and what is after it.
struct CEntry
{
    std::string Name;
    std::string Value;
};

/// The entries of a section; each one's name is its key.
class CEntries : public KeyedCollection<CEntry>
{
  public:
    /// The new entry; nullptr when there is one of that name. An entry without a name has no key.
    CEntry* Add(std::string_view name, std::string_view value);
};

} // namespace velmo
