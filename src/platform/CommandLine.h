#pragma once

#include <string>

namespace velmo::platform
{

/// What follows the program's name on the command line, as one text: on Windows as it was typed,
/// natively the arguments joined by blanks. @a argc and @a argv are main()'s.
[[nodiscard]] std::string CommandLineText(int argc, char** argv);

} // namespace velmo::platform
