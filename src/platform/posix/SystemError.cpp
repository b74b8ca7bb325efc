#include "platform/posix/SystemError.h"

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
    Pair{EACCES, 5},   Pair{EPERM, 5},    Pair{EROFS, 19},      Pair{EISDIR, 5},
    Pair{ENOTDIR, 3},  Pair{EEXIST, 183}, Pair{ENOTEMPTY, 145}, Pair{ENOSPC, 112},
    Pair{EDQUOT, 112}, Pair{EFBIG, 223},  Pair{EMFILE, 4},      Pair{ENFILE, 4},
    Pair{ENOMEM, 8},   Pair{EBUSY, 32},   Pair{ETXTBSY, 32},    Pair{ENAMETOOLONG, 206},
    Pair{EIO, 1117},   Pair{EINVAL, 87},
};

constexpr std::int32_t kFileMissing = 2;
constexpr std::int32_t kFolderMissing = 3;
constexpr std::int32_t kGeneralFailure = 31;

} // namespace

Error SystemError(int number, const std::filesystem::path& path)
{
    std::int32_t code = kGeneralFailure;
    if (number == ENOENT)
    {
        std::error_code ignored;
        code = std::filesystem::is_directory(path.parent_path(), ignored) ? kFileMissing
                                                                          : kFolderMissing;
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
