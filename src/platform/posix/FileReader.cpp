#include "platform/FileReader.h"

#include "platform/posix/DesktopPath.h"
#include "platform/posix/SystemError.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

namespace velmo::platform
{

struct FileReader::Handle
{
    int descriptor = -1;
    std::uint64_t size = 0;

    ~Handle()
    {
        if (descriptor >= 0)
        {
            close(descriptor);
        }
    }
};

Result<FileReader> FileReader::Open(std::string_view path)
{
    auto handle = std::make_unique<Handle>();
    const std::filesystem::path native = NativePath(path);
    handle->descriptor = open(native.c_str(), O_RDONLY | O_CLOEXEC);
    struct stat status
    {};
    if (handle->descriptor < 0 || fstat(handle->descriptor, &status) != 0)
    {
        return SystemError(errno, native);
    }
    if (!S_ISREG(status.st_mode))
    {
        return SystemError(EACCES, native);
    }
    handle->size = static_cast<std::uint64_t>(status.st_size);
    return FileReader(std::move(handle));
}

Result<FileReader> FileReader::OpenOwnProgram()
{
    return Open("/proc/self/exe");
}

bool FileReader::ReadAt(std::uint64_t offset, std::span<std::byte> target) const
{
    while (!target.empty())
    {
        const ssize_t n =
            pread(m_handle->descriptor, target.data(), target.size(), static_cast<off_t>(offset));
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

FileReader::FileReader(std::unique_ptr<Handle> handle) : m_handle(std::move(handle)) {}
FileReader::FileReader(FileReader&& other) noexcept = default;
FileReader& FileReader::operator=(FileReader&& other) noexcept = default;
FileReader::~FileReader() = default;

std::uint64_t FileReader::Size() const
{
    return m_handle->size;
}

} // namespace velmo::platform
