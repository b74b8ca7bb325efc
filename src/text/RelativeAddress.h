#pragma once

#include "text/WebAddress.h"

#include <optional>
#include <string_view>

namespace velmo
{

/**
    What a page at the web address @a base means by @a reference: a whole address is itself, anything
    else is completed from the page's own, "." and ".." in its path followed. Nothing for an empty
    reference and for what is no web address (WebAddress.h). Pure; any thread.
 */
[[nodiscard]] std::optional<WebAddress> ResolveReference(std::string_view base,
                                                         std::string_view reference);

} // namespace velmo
