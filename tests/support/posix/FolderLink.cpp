#include "tests/support/FolderLink.h"

#include "platform/posix/DesktopPath.h"

namespace velmo::test
{

bool MakeFolderLink(std::string_view link, std::string_view target)
{
    std::error_code error;
    std::filesystem::create_directory_symlink(platform::NativePath(target),
                                              platform::NativePath(link), error);
    return !error;
}

} // namespace velmo::test
