#pragma once

#include "platform/OpenFile.h"

namespace velmo::platform
{

/// A file open for reading at any place. Movable; closes the file when it goes. One thread at a time.
class FileReader
{
  public:
    /// Errors as in MFile.h.
    [[nodiscard]] static Result<FileReader> Open(std::string_view path);

    /// The running program's own file, natively also when it has been deleted by now.
    [[nodiscard]] static Result<FileReader> OpenOwnProgram();

    /// Size in bytes when it was opened.
    [[nodiscard]] std::uint64_t Size() const { return m_size; }

    /// Fills @a target with the bytes from @a offset on. False when the file does not have them all.
    [[nodiscard]] bool ReadAt(std::uint64_t offset, std::span<std::byte> target) const
    {
        return m_file.ReadAt(offset, target);
    }

  private:
    explicit FileReader(OpenFile file) : m_file(std::move(file)), m_size(m_file.Size()) {}

    OpenFile m_file;
    std::uint64_t m_size;
};

} // namespace velmo::platform
