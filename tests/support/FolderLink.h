#pragma once

#include <string_view>

namespace velmo::test
{

/// Makes @a link (a Windows path) a link to the folder @a target. False where the system has no such
/// links, as under Wine.
[[nodiscard]] bool MakeFolderLink(std::string_view link, std::string_view target);

} // namespace velmo::test
