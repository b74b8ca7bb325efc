#include "platform/posix/SystemError.h"

#include "platform/ErrorCode.h"

#include <array>
#include <cerrno>
#include <system_error>

namespace velmo::platform
{
namespace
{

struct Pair
{
    int number;
    std::int32_t windows;
};

constexpr std::array kPairs{
    Pair{EACCES, error_code::kRefused},
    Pair{EPERM, error_code::kRefused},
    Pair{EROFS, error_code::kWriteProtected},
    Pair{EISDIR, error_code::kRefused},
    Pair{ENOTDIR, error_code::kFolderMissing},
    Pair{EEXIST, error_code::kAlreadyExists},
    Pair{ENOTEMPTY, error_code::kFolderNotEmpty},
    Pair{ENOSPC, error_code::kDiskFull},
    Pair{EDQUOT, error_code::kDiskFull},
    Pair{EFBIG, error_code::kTooLarge},
    Pair{EMFILE, error_code::kTooManyOpenFiles},
    Pair{ENFILE, error_code::kTooManyOpenFiles},
    Pair{ENOMEM, error_code::kOutOfMemory},
    Pair{EBUSY, error_code::kInUse},
    Pair{ETXTBSY, error_code::kInUse},
    Pair{ENAMETOOLONG, error_code::kNameTooLong},
    Pair{EIO, error_code::kDeviceFault},
    Pair{EINVAL, error_code::kInvalidParameter},
};

} // namespace

Error SystemError(int number, const std::filesystem::path& path)
{
    std::int32_t code = error_code::kGeneralFailure;
    if (number == ENOENT)
    {
        std::error_code ignored;
        code = std::filesystem::is_directory(path.parent_path(), ignored)
                   ? error_code::kFileMissing
                   : error_code::kFolderMissing;
    }
    for (const Pair& pair : kPairs)
    {
        if (pair.number == number)
        {
            code = pair.windows;
        }
    }
    return {code, std::generic_category().message(number)};
}

} // namespace velmo::platform
