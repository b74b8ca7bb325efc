#include "platform/posix/DesktopPath.h"

#include "text/TextCase.h"

#include <sys/stat.h>

#include <cstdlib>
#include <string>
#include <vector>

namespace velmo::platform
{
namespace
{

namespace fs = std::filesystem;

/// The folder's own spelling of a name; empty when it has none of that name in any case.
std::string SpellingIn(const fs::path& folder, std::string_view name)
{
    std::error_code error;
    fs::directory_iterator entry(folder, error);
    for (; !error && entry != fs::directory_iterator(); entry.increment(error))
    {
        if (std::string spelling = entry->path().filename(); EqualInAnyCase(spelling, name))
        {
            return spelling;
        }
    }
    return {};
}

bool Exists(const fs::path& path)
{
    struct stat status
    {};
    return lstat(path.c_str(), &status) == 0;
}

/// Most paths are written as they are: one look instead of one per part.
fs::path AsSpelt(fs::path path, const std::vector<std::string_view>& parts)
{
    for (const std::string_view part : parts)
    {
        path /= part;
    }
    return path;
}

void AppendPart(fs::path& path, std::string_view part)
{
    const fs::path exact = path / part;
    if (Exists(exact))
    {
        path = exact;
        return;
    }
    const std::string spelling = SpellingIn(path, part);
    path = spelling.empty() ? exact : path / spelling;
}

std::vector<std::string_view> Parts(std::string_view path)
{
    std::vector<std::string_view> parts;
    while (!path.empty())
    {
        const std::size_t end = path.find_first_of("\\/");
        const std::string_view part = path.substr(0, end);
        path = end == std::string_view::npos ? std::string_view() : path.substr(end + 1);
        if (part == "..")
        {
            if (!parts.empty())
            {
                parts.pop_back();
            }
        }
        else if (!part.empty() && part != ".")
        {
            parts.push_back(part);
        }
    }
    return parts;
}

} // namespace

fs::path DesktopRoot()
{
    if (const char* home = std::getenv("VELMO_HOME"); home != nullptr && *home != '\0')
    {
        // A path that does not begin with "/" would be taken for one of Windows.
        std::error_code error;
        return fs::absolute(home, error);
    }
    if (const char* data = std::getenv("XDG_DATA_HOME"); data != nullptr && *data != '\0')
    {
        return fs::path(data) / "velmo-update-manager";
    }
    const char* user = std::getenv("HOME");
    return fs::path(user != nullptr ? user : "/") / ".local/share/velmo-update-manager";
}

fs::path NativePath(std::string_view windowsPath)
{
    if (windowsPath.starts_with('/'))
    {
        return windowsPath;
    }
    char drive = 'c';
    if (windowsPath.size() >= 2 && windowsPath[1] == ':')
    {
        drive = LowerCase(windowsPath[0]);
        windowsPath.remove_prefix(2);
    }
    fs::path path = DesktopRoot() / (std::string("drive_") + drive);
    const std::vector<std::string_view> parts = Parts(windowsPath);
    if (fs::path exact = AsSpelt(path, parts); Exists(exact))
    {
        return exact;
    }
    for (const std::string_view part : parts)
    {
        AppendPart(path, part);
    }
    return path;
}

} // namespace velmo::platform
