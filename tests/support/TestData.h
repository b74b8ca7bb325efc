#pragma once

#include <algorithm>
#include <string>
#include <string_view>

namespace velmo::test
{

/// The program's path of a file under tests/data, given with "/". The sources lie on the machine that
/// builds; under Wine its root is drive Z:.
[[nodiscard]] inline std::string TestDataPath(std::string_view relative)
{
    std::string path = VELMO_TEST_DATA "/" + std::string(relative);
#ifdef _WIN32
    path = "Z:" + path;
    std::ranges::replace(path, '/', '\\');
#endif
    return path;
}

} // namespace velmo::test
