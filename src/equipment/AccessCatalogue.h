#pragma once

#include "equipment/AccessTable.h"

#include <string_view>

namespace velmo
{

/// The table of that name (IsAccessName) from the file's catalogue, or nothing. Queries, linked
/// tables, forms and whatever else may bear the name are not tables. @a pages outlives the table.
[[nodiscard]] Result<std::optional<AccessTable>> FindAccessTable(AccessPages& pages,
                                                                 std::string_view name);

} // namespace velmo
