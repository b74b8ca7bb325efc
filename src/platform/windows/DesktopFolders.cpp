#include "platform/DesktopFolders.h"

#include "platform/windows/WideText.h"

#include <windows.h>

namespace velmo::platform
{
namespace
{

/// The longest path that Windows has.
constexpr std::size_t kLongestPath = 32'768;

} // namespace

std::string WindowsDirectory()
{
    std::wstring folder(kLongestPath, L'\0');
    folder.resize(GetWindowsDirectoryW(folder.data(), static_cast<UINT>(folder.size())));
    return Narrow(folder) + (folder.ends_with(L'\\') ? "" : "\\");
}

std::string ProgramFolder()
{
    const std::string path = ProgramPath();
    return path.substr(0, path.find_last_of('\\') + 1);
}

std::string ProgramPath()
{
    std::wstring path(kLongestPath, L'\0');
    path.resize(GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
    return Narrow(path);
}

} // namespace velmo::platform
