#pragma once

#include "platform/Result.h"

#include <chrono>
#include <memory>
#include <string_view>

namespace velmo::platform
{

/**
    The one lock for what processes share: held by one holder among all threads and processes, on
    Windows those of other sessions and machines too, and given up when its process ends, however it
    ends. It is a file "<path>.lock" that stands as long as the lock is held; what a killed process
    left of it is taken over. Movable; any thread.
 */
class SharedLock
{
  public:
    /// Takes the lock of @a path, waiting @a longest for another holder (zero: not at all). Error 33
    /// when it is still held then, 3 when the folder is missing, 5 when it may not be written.
    [[nodiscard]] static Result<SharedLock> Take(std::string_view path,
                                                 std::chrono::milliseconds longest);

    SharedLock(SharedLock&& other) noexcept;
    SharedLock& operator=(SharedLock&& other) noexcept;
    ~SharedLock();

  private:
    struct Holder;
    explicit SharedLock(std::unique_ptr<Holder> holder);

    std::unique_ptr<Holder> m_holder;
};

} // namespace velmo::platform
