#pragma once

#include "platform/Result.h"

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <utility>

namespace velmo::platform
{

/**
    An open file, without locking anybody out: other programs may read, write, rename or delete it
    meanwhile. Movable; closes the file when it goes. One thread at a time. Errors as in MFile.h; what
    is no file (a folder, a pipe, a device) is error 5.
 */
class OpenFile
{
  public:
    enum class For
    {
        Reading,
        Appending, ///< Writes go to the end; the file is created when needed.
        Anew,      ///< Writes begin a new file; one of that name goes, of a link only the link.
    };

    [[nodiscard]] static Result<OpenFile> Open(std::string_view path, For purpose);

    OpenFile(OpenFile&& other) noexcept : m_handle(std::exchange(other.m_handle, kNone)) {}
    OpenFile& operator=(OpenFile&& other) noexcept
    {
        std::swap(m_handle, other.m_handle);
        return *this;
    }
    ~OpenFile();

    /// Its size in bytes now, what others added included.
    [[nodiscard]] std::uint64_t Size() const;

    /// Fills @a target with the bytes from @a offset on. False when the file does not have them all.
    [[nodiscard]] bool ReadAt(std::uint64_t offset, std::span<std::byte> target) const;

    /// Writes all bytes.
    [[nodiscard]] Result<Done> Write(std::string_view bytes) const;

    /// Waits until what was written is on the disk.
    [[nodiscard]] Result<Done> Flush() const;

    /// The system's own handle or descriptor, for the other bodies of this room.
    [[nodiscard]] std::intptr_t Handle() const { return m_handle; }

  private:
    static constexpr std::intptr_t kNone = -1;
    explicit OpenFile(std::intptr_t handle) : m_handle(handle) {}

    std::intptr_t m_handle;
};

} // namespace velmo::platform
