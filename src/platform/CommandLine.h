#pragma once

#include <string>
#include <vector>

namespace velmo::platform
{

/// What follows the program's name on the command line, as one text: on Windows as it was typed,
/// natively the arguments joined by blanks. @a argc and @a argv are main()'s.
[[nodiscard]] std::string CommandLineText(int argc, char** argv);

/// The arguments that follow the program's name, in UTF-8, which main()'s own are not on Windows.
/// @a argc and @a argv are main()'s.
[[nodiscard]] std::vector<std::string> Arguments(int argc, char** argv);

} // namespace velmo::platform
