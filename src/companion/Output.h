#pragma once

#include <iosfwd>

namespace velmo::companion
{

/// Where a command writes.
struct Output
{
    std::ostream& out;
    std::ostream& errors;
};

} // namespace velmo::companion
