#include "platform/OpenFile.h"

#include "platform/posix/DesktopPath.h"
#include "platform/posix/SystemError.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

namespace velmo::platform
{
namespace
{

constexpr mode_t kNewFile = 0666;

int DescriptorOf(std::intptr_t handle)
{
    return static_cast<int>(handle);
}

/// Without waiting for a partner where the path is a pipe.
int FlagsFor(OpenFile::For purpose)
{
    constexpr int kAlways = O_CLOEXEC | O_NONBLOCK;
    switch (purpose)
    {
    case OpenFile::For::Reading:
        return kAlways | O_RDONLY;
    case OpenFile::For::Appending:
        return kAlways | O_WRONLY | O_APPEND | O_CREAT;
    case OpenFile::For::Anew:
        break;
    }
    return kAlways | O_WRONLY | O_CREAT | O_EXCL;
}

} // namespace

Result<OpenFile> OpenFile::Open(std::string_view path, For purpose)
{
    const std::filesystem::path native = NativePath(path);
    if (purpose == For::Anew)
    {
        unlink(native.c_str());
    }
    OpenFile file(open(native.c_str(), FlagsFor(purpose), kNewFile));
    struct stat status
    {};
    if (file.m_handle == kNone || fstat(DescriptorOf(file.m_handle), &status) != 0)
    {
        // Only a folder is still there when a file of that name is begun.
        return SystemError(errno == EEXIST ? EISDIR : errno, native);
    }
    if (!S_ISREG(status.st_mode))
    {
        return SystemError(EISDIR, native);
    }
    return file;
}

OpenFile::~OpenFile()
{
    if (m_handle != kNone)
    {
        close(DescriptorOf(m_handle));
    }
}

std::uint64_t OpenFile::Size() const
{
    struct stat status
    {};
    return fstat(DescriptorOf(m_handle), &status) == 0 ? static_cast<std::uint64_t>(status.st_size)
                                                       : 0;
}

bool OpenFile::ReadAt(std::uint64_t offset, std::span<std::byte> target) const
{
    while (!target.empty())
    {
        const ssize_t n =
            pread(DescriptorOf(m_handle), target.data(), target.size(), static_cast<off_t>(offset));
        if (n < 0 && errno == EINTR)
        {
            continue;
        }
        if (n <= 0)
        {
            return false;
        }
        offset += static_cast<std::uint64_t>(n);
        target = target.subspan(static_cast<std::size_t>(n));
    }
    return true;
}

Result<Done> OpenFile::Write(std::string_view bytes) const
{
    while (!bytes.empty())
    {
        const ssize_t n = write(DescriptorOf(m_handle), bytes.data(), bytes.size());
        if (n < 0 && errno != EINTR)
        {
            return SystemError(errno, {});
        }
        bytes.remove_prefix(n < 0 ? 0 : static_cast<std::size_t>(n));
    }
    return Done{};
}

Result<Done> OpenFile::Flush() const
{
    return fsync(DescriptorOf(m_handle)) == 0 ? Result<Done>(Done{}) : SystemError(errno, {});
}

} // namespace velmo::platform
