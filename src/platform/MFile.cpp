#include "platform/MFile.h"

#include "platform/ErrorCode.h"
#include "platform/FileReader.h"
#include "platform/SharedLock.h"
#include "platform/WholeFile.h"

namespace velmo::platform::MFile
{
namespace
{

/// Longer than any write takes; whoever holds a file longer than this has stopped.
constexpr std::chrono::seconds kLongestWait{10};

Result<Done> WriteBeside(std::string_view path, std::string_view bytes, Keeping keeping)
{
    return OpenBeside(path).Then([&](const OpenFile& file) {
        auto written = file.Write(bytes);
        return written && keeping == Keeping::Lasting ? file.Flush() : written;
    });
}

/// Puts a file with these bytes in the place of @a path, whose lock is held.
Result<Done> Replace(std::string_view path, std::string_view bytes, Keeping keeping)
{
    auto result =
        WriteBeside(path, bytes, keeping).Then([&](Done) { return PutInPlace(path, keeping); });
    if (!result)
    {
        (void)DeleteIfExists(std::string(path) + ".new");
    }
    return result;
}

} // namespace

Result<std::string> ReadAll(std::string_view path, std::uint64_t most)
{
    const auto file = FileReader::Open(path);
    if (!file)
    {
        return file.Failure();
    }
    const std::uint64_t size = file.Value().Size();
    if (size > most)
    {
        return Error{error_code::kTooLarge,
                     "The file is larger than " + std::to_string(most) + " bytes"};
    }
    std::string bytes(static_cast<std::size_t>(size), '\0');
    if (!file.Value().ReadAt(0, std::as_writable_bytes(std::span(bytes))))
    {
        return Error{error_code::kReadFault,
                     "The file became shorter while it was read, or could not be read"};
    }
    return bytes;
}

Result<Done> WriteAll(std::string_view path, std::string_view bytes, Keeping keeping)
{
    const std::string written = WrittenPath(path);
    const auto lock = SharedLock::Take(written, kLongestWait);
    return lock ? Replace(written, bytes, keeping) : lock.Failure();
}

Result<Done> Edit(std::string_view path, const std::function<std::string(std::string_view)>& edit)
{
    const std::string written = WrittenPath(path);
    const auto lock = SharedLock::Take(written, kLongestWait);
    if (!lock)
    {
        return lock.Failure();
    }
    const auto old = ReadAll(written);
    if (!old && old.Failure().code != error_code::kFileMissing)
    {
        return old.Failure();
    }
    const std::string newBytes = edit(old ? old.Value() : std::string());
    return old && newBytes == old.Value() ? Result<Done>(Done{})
                                          : Replace(written, newBytes, Keeping::Lasting);
}

Result<Done> Append(std::string_view path, std::string_view bytes)
{
    return OpenFile::Open(path, OpenFile::For::Appending).Then([&](const OpenFile& file) {
        return file.Write(bytes);
    });
}

} // namespace velmo::platform::MFile
