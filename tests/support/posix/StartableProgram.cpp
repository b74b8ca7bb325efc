#include "tests/support/StartableProgram.h"

#include "platform/posix/DesktopPath.h"

#include <filesystem>

namespace velmo::test
{

std::string WriteStartableProgram(const TemporaryDesktop& desktop, std::string_view name)
{
    std::string path = desktop.Write(name, "#!/bin/sh\n");
    std::filesystem::permissions(platform::NativePath(path), std::filesystem::perms::owner_exec,
                                 std::filesystem::perm_options::add);
    return path;
}

} // namespace velmo::test
