#include "platform/posix/WholeFile.h"

#include "platform/MFile.h"
#include "platform/posix/Descriptor.h"
#include "platform/posix/SystemError.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <cerrno>
#include <cstdio>

namespace velmo::platform
{
namespace
{

namespace fs = std::filesystem;

constexpr std::int32_t kFileMissing = 2;
constexpr mode_t kNewFile = 0666;
constexpr mode_t kModeBits = 07777;

fs::path TemporaryName(const fs::path& path)
{
    static std::atomic<unsigned> count = 0;
    return path.string() + ".new-" + std::to_string(getpid()) + "-" + std::to_string(++count);
}

int WriteNewFile(const fs::path& path, std::string_view bytes, const fs::path& modeOf,
                 MFile::Keeping keeping)
{
    const Descriptor file(open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, kNewFile));
    if (!file.IsOpen())
    {
        return errno;
    }
    struct stat old
    {};
    if (stat(modeOf.c_str(), &old) == 0 && fchmod(file.Number(), old.st_mode & kModeBits) != 0)
    {
        return errno;
    }
    if (const int failure = WriteBytes(file.Number(), bytes); failure != 0)
    {
        return failure;
    }
    const bool passing = keeping == MFile::Keeping::Passing;
    return passing || fsync(file.Number()) == 0 ? 0 : errno;
}

} // namespace

int WriteBytes(int descriptor, std::string_view bytes)
{
    while (!bytes.empty())
    {
        const ssize_t n = write(descriptor, bytes.data(), bytes.size());
        if (n < 0 && errno != EINTR)
        {
            return errno;
        }
        bytes.remove_prefix(n < 0 ? 0 : static_cast<std::size_t>(n));
    }
    return 0;
}

Result<Done> ReplaceFile(const fs::path& path, std::string_view bytes, MFile::Keeping keeping)
{
    const fs::path temporary = TemporaryName(path);
    int failure = WriteNewFile(temporary, bytes, path, keeping);
    if (failure == 0 && std::rename(temporary.c_str(), path.c_str()) != 0)
    {
        failure = errno;
    }
    if (failure != 0)
    {
        unlink(temporary.c_str());
        return SystemError(failure, path);
    }
    if (keeping == MFile::Keeping::Passing)
    {
        return Done{};
    }
    // The new name is on the disk only with its folder.
    const Descriptor folder(open(path.parent_path().c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (folder.IsOpen())
    {
        fsync(folder.Number());
    }
    return Done{};
}

Result<Done> EditFile(const fs::path& path,
                      const std::function<std::string(std::string_view)>& edit)
{
    const Descriptor folder(open(path.parent_path().c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!folder.IsOpen())
    {
        return SystemError(errno, path);
    }
    while (flock(folder.Number(), LOCK_EX) != 0)
    {
        if (errno != EINTR)
        {
            return SystemError(errno, path);
        }
    }
    auto old = MFile::ReadAll(path.string());
    if (!old && old.Failure().code != kFileMissing)
    {
        return old.Failure();
    }
    const std::string oldBytes = old ? std::move(old).Value() : std::string();
    const std::string newBytes = edit(oldBytes);
    return newBytes == oldBytes ? Result<Done>(Done{})
                                : ReplaceFile(path, newBytes, MFile::Keeping::Lasting);
}

} // namespace velmo::platform
