#include "platform/SharedLock.h"

#include "platform/ErrorCode.h"
#include "platform/posix/Descriptor.h"
#include "platform/posix/DesktopPath.h"
#include "platform/posix/SystemError.h"

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

#include <cerrno>
#include <thread>

namespace velmo::platform
{

struct SharedLock::Holder
{
    Holder(std::filesystem::path lockPath, Descriptor lockFile)
        : path(std::move(lockPath)), file(std::move(lockFile))
    {}
    Holder(const Holder&) = delete;
    Holder& operator=(const Holder&) = delete;

    /// The name goes while the lock is held: nobody's newer file is meant.
    ~Holder() { unlink(path.c_str()); }

    std::filesystem::path path;
    Descriptor file;
};

namespace
{

constexpr mode_t kForEverybody = 0666;

/// Whether the file still bears its name: the last holder removes it when it gives it up.
bool StillNamed(const Descriptor& file, const std::filesystem::path& path)
{
    struct stat held
    {};
    struct stat named
    {};
    return fstat(file.Number(), &held) == 0 && lstat(path.c_str(), &named) == 0 &&
           held.st_ino == named.st_ino && held.st_dev == named.st_dev;
}

} // namespace

Result<SharedLock> SharedLock::Take(std::string_view path, std::chrono::milliseconds longest)
{
    const auto until = std::chrono::steady_clock::now() + longest;
    const std::filesystem::path lockPath = NativePath(path).string() + ".lock";
    while (true)
    {
        Descriptor file(open(lockPath.c_str(),
                             O_RDONLY | O_CREAT | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC,
                             kForEverybody));
        if (!file.IsOpen())
        {
            return SystemError(errno, lockPath);
        }
        if (flock(file.Number(), LOCK_EX | LOCK_NB) == 0)
        {
            if (StillNamed(file, lockPath))
            {
                return SharedLock(std::make_unique<Holder>(lockPath, std::move(file)));
            }
            continue;
        }
        if (errno != EWOULDBLOCK && errno != EINTR)
        {
            return SystemError(errno, lockPath);
        }
        if (std::chrono::steady_clock::now() >= until)
        {
            return Error{error_code::kLocked,
                         "Another program holds the lock " + lockPath.string()};
        }
        std::this_thread::sleep_for(std::chrono::milliseconds(2));
    }
}

SharedLock::SharedLock(std::unique_ptr<Holder> holder) : m_holder(std::move(holder)) {}
SharedLock::SharedLock(SharedLock&& other) noexcept = default;
SharedLock& SharedLock::operator=(SharedLock&& other) noexcept = default;
SharedLock::~SharedLock() = default;

} // namespace velmo::platform
