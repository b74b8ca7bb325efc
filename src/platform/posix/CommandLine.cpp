#include "platform/CommandLine.h"

namespace velmo::platform
{

std::string CommandLineText(int argc, char** argv)
{
    std::string text;
    for (int i = 1; i < argc; ++i)
    {
        text += (i > 1 ? " " : "") + std::string(argv[i]);
    }
    return text;
}

std::vector<std::string> Arguments(int argc, char** argv)
{
    return {argv + 1, argv + argc};
}

} // namespace velmo::platform
