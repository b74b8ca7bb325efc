#pragma once

#include "tests/support/TemporaryDesktop.h"

namespace velmo::test
{

/// Writes a program that this system can start and that ends at once. Gives its path.
std::string WriteStartableProgram(const TemporaryDesktop& desktop, std::string_view name);

} // namespace velmo::test
