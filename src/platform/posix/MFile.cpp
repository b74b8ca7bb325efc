#include "platform/MFile.h"

#include "platform/ErrorCode.h"
#include "platform/posix/DesktopPath.h"
#include "platform/posix/SystemError.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cctype>
#include <cerrno>
#include <cstdio>

namespace velmo::platform::MFile
{
namespace
{

namespace fs = std::filesystem;

bool IsSeparator(char c)
{
    return c == '\\' || c == '/';
}

bool HasDrive(std::string_view path)
{
    return path.size() >= 2 && path[1] == ':' &&
           std::isalpha(static_cast<unsigned char>(path[0])) != 0;
}

Result<Done> DoneOr(bool succeeded, const fs::path& path)
{
    return succeeded ? Result<Done>(Done{}) : SystemError(errno, path);
}

/// "a\.\b\..\c" without its "." and ".." parts, ".." at the front dropped. As in Windows a folder on the
/// way loses one dot at its end, and the last part all blanks and dots.
std::string WithoutDots(std::string_view path)
{
    std::vector<std::string_view> parts;
    const bool isFolder = !path.empty() && IsSeparator(path.back());
    while (!path.empty())
    {
        const std::size_t end = std::min(path.find_first_of("\\/"), path.size());
        std::string_view part = path.substr(0, end);
        if (end < path.size() && part.ends_with('.') && part != "." && part != "..")
        {
            part.remove_suffix(1);
        }
        path.remove_prefix(std::min(end + 1, path.size()));
        if (part == ".." && !parts.empty())
        {
            parts.pop_back();
        }
        else if (!part.empty() && part != "." && part != "..")
        {
            parts.push_back(part);
        }
    }
    std::string text;
    for (const std::string_view part : parts)
    {
        text += (text.empty() ? "" : "\\") + std::string(part);
    }
    if (isFolder && !text.empty())
    {
        return text + "\\";
    }
    return text.substr(0, text.find_last_not_of(" .") + 1);
}

/// Of what a folder has, itself or through a link.
Result<std::vector<std::string>> NamesIn(std::string_view folder, fs::file_type type)
{
    std::vector<std::string> names;
    std::error_code error;
    const fs::path native = NativePath(folder);
    fs::directory_iterator entry(native, error);
    for (; !error && entry != fs::directory_iterator(); entry.increment(error))
    {
        std::error_code vanished;
        if (entry->status(vanished).type() == type)
        {
            names.push_back(entry->path().filename().string());
        }
    }
    if (error)
    {
        Error failure = SystemError(error.value(), native);
        failure.code = error.value() == ENOENT    ? error_code::kFolderMissing
                       : error.value() == ENOTDIR ? error_code::kNotAFolder
                                                  : failure.code;
        return failure;
    }
    return names;
}

} // namespace

bool FileExists(std::string_view path)
{
    struct stat status
    {};
    return !path.empty() && path.back() != ':' && !IsSeparator(path.back()) &&
           stat(NativePath(path).c_str(), &status) == 0 && S_ISREG(status.st_mode);
}

bool FolderExists(std::string_view path)
{
    struct stat status
    {};
    return !path.empty() && stat(NativePath(path).c_str(), &status) == 0 && S_ISDIR(status.st_mode);
}

bool IsLink(std::string_view path)
{
    std::error_code error;
    return fs::is_symlink(NativePath(path), error);
}

Result<Time> ModificationTime(std::string_view path)
{
    const fs::path native = NativePath(path);
    struct stat status
    {};
    if (stat(native.c_str(), &status) != 0)
    {
        return SystemError(errno, native);
    }
    const auto sinceEpoch = std::chrono::seconds(status.st_mtim.tv_sec) +
                            std::chrono::nanoseconds(status.st_mtim.tv_nsec);
    return Time(std::chrono::duration_cast<Time::duration>(sinceEpoch));
}

Result<Done> SetModificationTime(std::string_view path, Time time)
{
    const fs::path native = NativePath(path);
    const auto seconds = std::chrono::floor<std::chrono::seconds>(time);
    const std::chrono::nanoseconds rest = time - seconds;
    const std::array<timespec, 2> times{
        timespec{0, UTIME_OMIT},
        timespec{seconds.time_since_epoch().count(), rest.count()},
    };
    return DoneOr(utimensat(AT_FDCWD, native.c_str(), times.data(), 0) == 0, native);
}

std::string FullPath(std::string_view path)
{
    if (path.empty() || path.find('\0') != std::string_view::npos)
    {
        return {};
    }
    if (path.starts_with('/'))
    {
        return fs::path(path).lexically_normal().string();
    }
    if (path.starts_with("\\\\"))
    {
        return "\\\\" + WithoutDots(path.substr(2));
    }
    const char drive = HasDrive(path) ? path[0] : 'C';
    return std::string(1, drive) + ":\\" + WithoutDots(path.substr(HasDrive(path) ? 2 : 0));
}

std::string FromCommandLine(std::string_view argument)
{
    std::error_code error;
    return argument.empty() || HasDrive(argument) ? std::string(argument)
                                                  : fs::absolute(argument, error).string();
}

Result<Done> DeleteIfExists(std::string_view path)
{
    const fs::path native = NativePath(path);
    return DoneOr(unlink(native.c_str()) == 0 || errno == ENOENT, native);
}

Result<Done> Rename(std::string_view from, std::string_view to)
{
    const fs::path native = NativePath(from);
    return DoneOr(std::rename(native.c_str(), NativePath(to).c_str()) == 0, native);
}

Result<Done> CreateFolders(std::string_view path)
{
    const fs::path native = NativePath(path);
    std::error_code error;
    fs::create_directories(native, error);
    return error ? Result<Done>(SystemError(error.value(), native)) : Done{};
}

Result<Done> RemoveFolder(std::string_view path)
{
    const fs::path native = NativePath(path);
    const auto remove = IsLink(path) ? unlink : rmdir;
    return DoneOr(remove(native.c_str()) == 0 || errno == ENOENT, native);
}

Result<std::vector<std::string>> FileNames(std::string_view folder)
{
    return NamesIn(folder, fs::file_type::regular);
}

Result<std::vector<std::string>> FolderNames(std::string_view folder)
{
    return NamesIn(folder, fs::file_type::directory);
}

} // namespace velmo::platform::MFile
