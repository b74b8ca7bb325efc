#pragma once

#include <algorithm>
#include <string>
#include <string_view>

namespace velmo::test
{

/// The program's path of a file that lies on the machine that builds, given as that machine has it;
/// under Wine its root is drive Z:.
[[nodiscard]] inline std::string BuildMachinePath(std::string path)
{
#ifdef _WIN32
    path = "Z:" + path;
    std::ranges::replace(path, '/', '\\');
#endif
    return path;
}

/// The program's path of a file under tests/data, given with "/".
[[nodiscard]] inline std::string TestDataPath(std::string_view relative)
{
    return BuildMachinePath(VELMO_TEST_DATA "/" + std::string(relative));
}

} // namespace velmo::test
