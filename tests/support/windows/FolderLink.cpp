#include "tests/support/FolderLink.h"

#include "platform/MFile.h"
#include "platform/windows/WideText.h"

#include <windows.h>

namespace velmo::test
{

bool MakeFolderLink(std::string_view link, std::string_view target)
{
    constexpr DWORD kFlags =
        SYMBOLIC_LINK_FLAG_DIRECTORY | SYMBOLIC_LINK_FLAG_ALLOW_UNPRIVILEGED_CREATE;
    // Wine says that it did, and did nothing.
    return CreateSymbolicLinkW(platform::Wide(link).c_str(), platform::Wide(target).c_str(),
                               kFlags) != FALSE &&
           platform::MFile::IsLink(link);
}

} // namespace velmo::test
