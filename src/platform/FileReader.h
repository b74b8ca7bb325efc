#pragma once

#include "platform/Result.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string_view>

namespace velmo::platform
{

/**
    A file open for reading at any place, without locking anybody out: other programs may read,
    write, rename or delete it meanwhile. Movable; closes the file when it goes. One thread at a time.
 */
class FileReader
{
  public:
    /// Errors as in MFile.h.
    [[nodiscard]] static Result<FileReader> Open(std::string_view path);

    /// The running program's own file, natively also when it has been deleted by now.
    [[nodiscard]] static Result<FileReader> OpenOwnProgram();

    FileReader(FileReader&& other) noexcept;
    FileReader& operator=(FileReader&& other) noexcept;
    ~FileReader();

    /// Size in bytes when it was opened.
    [[nodiscard]] std::uint64_t Size() const;

    /// Fills @a target with the bytes from @a offset on. False when the file does not have them all.
    [[nodiscard]] bool ReadAt(std::uint64_t offset, std::span<std::byte> target) const;

  private:
    struct Handle;
    explicit FileReader(std::unique_ptr<Handle> handle);

    std::unique_ptr<Handle> m_handle;
};

} // namespace velmo::platform
