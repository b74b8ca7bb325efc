#pragma once

#include "access/AccessTable.h"

#include <string_view>

namespace velmo
{

/// The table of that name (IsAccessName) by the file's own table of its objects, or nothing. Queries,
/// linked tables, forms and whatever else may bear the name are not tables. @a pages outlives the table.
[[nodiscard]] std::optional<AccessTable> FindAccessTable(AccessPages& pages, std::string_view name);

} // namespace velmo
