#include "platform/posix/DesktopPath.h"

#include <sys/stat.h>

#include <cctype>
#include <chrono>
#include <cstdlib>
#include <mutex>
#include <string>
#include <unordered_map>
#include <vector>

namespace velmo::platform
{
namespace
{

namespace fs = std::filesystem;

std::string Lower(std::string_view text)
{
    std::string lower(text);
    for (char& c : lower)
    {
        c = static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
    }
    return lower;
}

/// One folder's names by their lower-case form, good as long as the folder's change time stays.
struct Listing
{
    timespec changed{};
    std::unordered_map<std::string, std::string> names;
};

class Listings
{
  public:
    /// The folder's own spelling of a name; empty when it has none of that name in any case.
    std::string Find(const std::string& folder, std::string_view name)
    {
        struct stat status
        {};
        if (stat(folder.c_str(), &status) != 0)
        {
            return {};
        }
        const std::lock_guard lock(m_mutex);
        Listing& listing = m_byFolder[folder];
        if (listing.changed.tv_sec != status.st_mtim.tv_sec ||
            listing.changed.tv_nsec != status.st_mtim.tv_nsec)
        {
            listing = Read(folder, status.st_mtim);
        }
        const auto found = listing.names.find(Lower(name));
        return found == listing.names.end() ? std::string() : found->second;
    }

  private:
    /// False within the tick of the file system's clock that changed the folder: it may change again
    /// unseen. That clock ticks every 10 ms at most, or every two seconds where it has no fractions.
    static bool IsPast(timespec changed)
    {
        timespec now{};
        clock_gettime(CLOCK_REALTIME_COARSE, &now);
        const auto since = std::chrono::seconds(now.tv_sec - changed.tv_sec) +
                           std::chrono::nanoseconds(now.tv_nsec - changed.tv_nsec);
        return since > (changed.tv_nsec == 0 ? std::chrono::milliseconds(2000)
                                             : std::chrono::milliseconds(20));
    }

    static Listing Read(const std::string& folder, timespec changed)
    {
        Listing listing;
        if (IsPast(changed))
        {
            listing.changed = changed;
        }
        std::error_code error;
        for (const auto& entry : fs::directory_iterator(folder, error))
        {
            const std::string name = entry.path().filename().string();
            listing.names.emplace(Lower(name), name);
        }
        return listing;
    }

    std::mutex m_mutex;
    std::unordered_map<std::string, Listing> m_byFolder;
};

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
    static Listings listings;
    const fs::path exact = path / part;
    if (Exists(exact))
    {
        path = exact;
        return;
    }
    const std::string spelling = listings.Find(path.string(), part);
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
        return home;
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
        drive = static_cast<char>(std::tolower(static_cast<unsigned char>(windowsPath[0])));
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
