#include "platform/DesktopFolders.h"

#include "platform/posix/DesktopPath.h"

#include <algorithm>
#include <cctype>

namespace velmo::platform
{
namespace
{

namespace fs = std::filesystem;

constexpr std::string_view kDrivePrefix = "drive_";
constexpr const char* kWindowsDirectory = "C:\\windows\\";
constexpr const char* kInstalledFolder = "C:\\Program Files\\Velmo Software\\Update Manager\\";

/// The Windows path of a folder below the desktop root; empty when it lies elsewhere.
std::string WindowsPath(const fs::path& folder)
{
    std::error_code error;
    const fs::path inside = folder.lexically_relative(fs::weakly_canonical(DesktopRoot(), error));
    std::string path = inside.string();
    if (!path.starts_with(kDrivePrefix) || path.size() == kDrivePrefix.size())
    {
        return {};
    }
    path.erase(0, kDrivePrefix.size());
    path.front() = static_cast<char>(std::toupper(static_cast<unsigned char>(path.front())));
    path.insert(1, ":");
    std::replace(path.begin(), path.end(), '/', '\\');
    return path + "\\";
}

} // namespace

std::string WindowsDirectory()
{
    // A machine always has one; a desktop root may be fresh.
    std::error_code error;
    fs::create_directories(NativePath(kWindowsDirectory), error);
    return kWindowsDirectory;
}

std::string ProgramFolder()
{
    std::error_code error;
    std::string folder = WindowsPath(fs::read_symlink("/proc/self/exe", error).parent_path());
    if (!folder.empty())
    {
        return folder;
    }
    // An executable that runs always has a folder.
    fs::create_directories(NativePath(kInstalledFolder), error);
    return kInstalledFolder;
}

std::string ProgramPath()
{
    return "/proc/self/exe";
}

} // namespace velmo::platform
