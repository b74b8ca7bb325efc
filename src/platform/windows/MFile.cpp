#include "platform/MFile.h"

#include "platform/windows/WideText.h"

#include <windows.h>

namespace velmo::platform::MFile
{
namespace
{

/// File times count 100 ns from 1601; the system clock counts from 1970.
using FileTicks = std::chrono::duration<std::int64_t, std::ratio<1, 10'000'000>>;
constexpr FileTicks kEpoch{116'444'736'000'000'000};

Result<Done> DoneOr(bool succeeded)
{
    return succeeded ? Result<Done>(Done{}) : LastSystemError();
}

/// Like DoneOr(), but there being nothing at the path is fine too.
Result<Done> DoneOrMissing(bool succeeded)
{
    const DWORD error = succeeded ? ERROR_SUCCESS : GetLastError();
    const bool fine =
        error == ERROR_SUCCESS || error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND;
    return fine ? Result<Done>(Done{}) : SystemError(error);
}

DWORD Attributes(std::string_view path)
{
    return GetFileAttributesW(Wide(path).c_str());
}

Result<std::vector<std::string>> NamesIn(std::string_view folder, bool folders)
{
    std::vector<std::string> names;
    WIN32_FIND_DATAW found{};
    const HANDLE search = FindFirstFileW(Wide(std::string(folder) + "\\*").c_str(), &found);
    if (search == INVALID_HANDLE_VALUE)
    {
        // A drive without anything has not even itself.
        const DWORD error = GetLastError();
        return error == ERROR_FILE_NOT_FOUND ? Result(names) : SystemError(error);
    }
    do
    {
        std::string name = Narrow(found.cFileName);
        const bool isFolder = (found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
        if (isFolder == folders && name != "." && name != "..")
        {
            names.push_back(std::move(name));
        }
    } while (FindNextFileW(search, &found));
    const DWORD error = GetLastError();
    FindClose(search);
    return error == ERROR_NO_MORE_FILES ? Result(names) : SystemError(error);
}

} // namespace

bool FileExists(std::string_view path)
{
    if (path.empty() || path.back() == ':' || path.back() == '\\' || path.back() == '/')
    {
        return false;
    }
    const DWORD attributes = Attributes(path);
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) == 0;
}

bool FolderExists(std::string_view path)
{
    const DWORD attributes = path.empty() ? INVALID_FILE_ATTRIBUTES : Attributes(path);
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

bool IsLink(std::string_view path)
{
    // With a "\\" at its end the path would mean what the link leads to.
    const std::string_view self = path.substr(0, path.find_last_not_of("\\/") + 1);
    const DWORD attributes = self.empty() ? INVALID_FILE_ATTRIBUTES : Attributes(self);
    return attributes != INVALID_FILE_ATTRIBUTES &&
           (attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0;
}

Result<Time> ModificationTime(std::string_view path)
{
    WIN32_FILE_ATTRIBUTE_DATA data{};
    if (!GetFileAttributesExW(Wide(path).c_str(), GetFileExInfoStandard, &data))
    {
        return LastSystemError();
    }
    const std::uint64_t ticks = (std::uint64_t{data.ftLastWriteTime.dwHighDateTime} << 32) |
                                data.ftLastWriteTime.dwLowDateTime;
    return Time(std::chrono::duration_cast<Time::duration>(
        FileTicks(static_cast<std::int64_t>(ticks)) - kEpoch));
}

Result<Done> SetModificationTime(std::string_view path, Time time)
{
    HANDLE file = CreateFileW(Wide(path).c_str(), FILE_WRITE_ATTRIBUTES,
                              FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                              OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE)
    {
        return LastSystemError();
    }
    const auto ticks = static_cast<std::uint64_t>(
        (std::chrono::duration_cast<FileTicks>(time.time_since_epoch()) + kEpoch).count());
    const FILETIME written{static_cast<DWORD>(ticks), static_cast<DWORD>(ticks >> 32)};
    const auto result = DoneOr(SetFileTime(file, nullptr, nullptr, &written) != FALSE);
    CloseHandle(file);
    return result;
}

std::string FullPath(std::string_view path)
{
    if (path.empty() || path.find('\0') != std::string_view::npos)
    {
        return {};
    }
    const std::wstring wide = Wide(path);
    const DWORD size = GetFullPathNameW(wide.c_str(), 0, nullptr, nullptr);
    std::wstring full(size, L'\0');
    full.resize(GetFullPathNameW(wide.c_str(), size, full.data(), nullptr));
    return Narrow(full);
}

std::string FromCommandLine(std::string_view argument)
{
    return std::string(argument);
}

Result<Done> DeleteIfExists(std::string_view path)
{
    return DoneOrMissing(DeleteFileW(Wide(path).c_str()) != FALSE);
}

Result<Done> Rename(std::string_view from, std::string_view to)
{
    return DoneOr(MoveFileExW(Wide(from).c_str(), Wide(to).c_str(), MOVEFILE_REPLACE_EXISTING) !=
                  FALSE);
}

Result<Done> CreateFolders(std::string_view path)
{
    if (FolderExists(path))
    {
        return Done{};
    }
    const std::string full = FullPath(path);
    constexpr std::size_t kAfterDrive = 3;
    DWORD error = ERROR_INVALID_NAME;
    for (std::size_t end = kAfterDrive; end <= full.size(); ++end)
    {
        if (end == full.size() || full[end] == '\\')
        {
            const std::wstring folder = Wide(std::string_view(full).substr(0, end));
            error = CreateDirectoryW(folder.c_str(), nullptr) ? ERROR_SUCCESS : GetLastError();
        }
    }
    // The last one tells; those above may lie in places that may be passed but not written.
    return FolderExists(path) ? Result<Done>(Done{}) : SystemError(error);
}

Result<Done> RemoveFolder(std::string_view path)
{
    return DoneOrMissing(RemoveDirectoryW(Wide(path).c_str()) != FALSE);
}

Result<std::vector<std::string>> FileNames(std::string_view folder)
{
    return NamesIn(folder, false);
}

Result<std::vector<std::string>> FolderNames(std::string_view folder)
{
    return NamesIn(folder, true);
}

} // namespace velmo::platform::MFile
