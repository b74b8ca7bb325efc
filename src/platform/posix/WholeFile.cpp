#include "platform/WholeFile.h"

#include "platform/ErrorCode.h"
#include "platform/posix/Descriptor.h"
#include "platform/posix/DesktopPath.h"
#include "platform/posix/SystemError.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>
#include <cstdio>

namespace velmo::platform
{
namespace
{

constexpr mode_t kModeBits = 07777;
constexpr mode_t kAnyWrite = 0222;

} // namespace

std::string WrittenPath(std::string_view path)
{
    constexpr int kMostLinks = 40;
    std::filesystem::path native = NativePath(path);
    std::error_code error;
    for (int i = 0; i < kMostLinks && std::filesystem::is_symlink(native, error); ++i)
    {
        native = native.parent_path() / std::filesystem::read_symlink(native, error);
    }
    return native.string();
}

Result<OpenFile> OpenBeside(std::string_view path)
{
    const std::filesystem::path native = NativePath(path);
    struct stat old
    {};
    const bool isThere = stat(native.c_str(), &old) == 0;
    if (isThere && (!S_ISREG(old.st_mode) || (old.st_mode & kAnyWrite) == 0))
    {
        return Error{error_code::kRefused,
                     S_ISREG(old.st_mode) ? "The file is read-only" : "This is no file"};
    }
    if (isThere && access(native.c_str(), W_OK) != 0)
    {
        return SystemError(errno, native);
    }
    auto file = OpenFile::Open(native.string() + ".new", OpenFile::For::Anew);
    if (file && isThere &&
        fchmod(static_cast<int>(file.Value().Handle()), old.st_mode & kModeBits) != 0)
    {
        return SystemError(errno, native);
    }
    return file;
}

Result<Done> PutInPlace(std::string_view path, MFile::Keeping keeping)
{
    const std::filesystem::path native = NativePath(path);
    if (std::rename((native.string() + ".new").c_str(), native.c_str()) != 0)
    {
        return SystemError(errno, native);
    }
    if (keeping == MFile::Keeping::Lasting)
    {
        // The new name is on the disk only with its folder.
        const Descriptor folder(
            open(native.parent_path().c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
        fsync(folder.Number());
    }
    return Done{};
}

} // namespace velmo::platform
