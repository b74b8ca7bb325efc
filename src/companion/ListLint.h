#pragma once

#include "platform/Result.h"

#include <cstddef>
#include <string>
#include <vector>

namespace velmo::companion
{

/// Something that the update managers would stumble over.
struct ListFault
{
    std::string file;     ///< As it was found.
    std::size_t line = 0; ///< From 1 on.
    std::string text;
};

/**
    What is wrong with the two lists of a folder that is laid out as the vendor's web server: sections
    that are no product's, keys and sections that come twice, numbers, dates, addresses and file names
    that clients do not take, gaps in the numbers of databases, setups that are not there or have
    another size than the list says, headlines that cannot be clicked or are not shown. In the order of
    the lists' lines. Errors: a list that cannot be read, with its name.
 */
[[nodiscard]] Result<std::vector<ListFault>> LintSite(const std::string& site);

} // namespace velmo::companion
