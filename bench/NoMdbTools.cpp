#include "bench/MdbToolsReleaseDate.h"

std::optional<std::string> MdbToolsReleaseDate(const std::string&)
{
    return std::nullopt;
}
