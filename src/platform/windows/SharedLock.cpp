#include "platform/SharedLock.h"

#include "platform/ErrorCode.h"
#include "platform/windows/WideText.h"

#include <windows.h>

#include <algorithm>
#include <optional>

namespace velmo::platform
{

struct SharedLock::Holder
{
    explicit Holder(HANDLE lockFile) : file(lockFile) {}
    Holder(const Holder&) = delete;
    Holder& operator=(const Holder&) = delete;
    ~Holder() { CloseHandle(file); }

    HANDLE file;
};

namespace
{

/// What a file that is just being deleted answers, for a moment, and a folder that may not be written
/// for ever.
constexpr auto kLongestDeletion = std::chrono::milliseconds(300);

} // namespace

Result<SharedLock> SharedLock::Take(std::string_view path, std::chrono::milliseconds longest)
{
    const auto began = std::chrono::steady_clock::now();
    const std::wstring lockPath = Wide(path) + L".lock";
    std::optional<std::chrono::steady_clock::time_point> refused; // For the first time in a row.
    while (true)
    {
        HANDLE file = CreateFileW(lockPath.c_str(), GENERIC_WRITE | DELETE, 0, nullptr, OPEN_ALWAYS,
                                  FILE_ATTRIBUTE_TEMPORARY | FILE_FLAG_DELETE_ON_CLOSE, nullptr);
        if (file != INVALID_HANDLE_VALUE)
        {
            return SharedLock(std::make_unique<Holder>(file));
        }
        const DWORD error = GetLastError();
        const auto now = std::chrono::steady_clock::now();
        const bool isHeld = error == ERROR_SHARING_VIOLATION;
        if (isHeld && now - began >= longest)
        {
            return Error{error_code::kLocked, "Another program holds the lock " + Narrow(lockPath)};
        }
        refused = isHeld ? std::nullopt : std::optional(refused.value_or(now));
        if (refused &&
            (error != ERROR_ACCESS_DENIED || now - *refused >= std::min(longest, kLongestDeletion)))
        {
            return SystemError(error);
        }
        Sleep(2);
    }
}

SharedLock::SharedLock(std::unique_ptr<Holder> holder) : m_holder(std::move(holder)) {}
SharedLock::SharedLock(SharedLock&& other) noexcept = default;
SharedLock& SharedLock::operator=(SharedLock&& other) noexcept = default;
SharedLock::~SharedLock() = default;

} // namespace velmo::platform
