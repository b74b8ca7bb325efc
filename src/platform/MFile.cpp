#include "platform/MFile.h"

#include "platform/FileReader.h"

namespace velmo::platform::MFile
{
namespace
{

constexpr std::int32_t kTooLarge = 223;
constexpr std::int32_t kReadFault = 30;

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
        return Error{kTooLarge, "The file is larger than " + std::to_string(most) + " bytes"};
    }
    std::string bytes(static_cast<std::size_t>(size), '\0');
    if (!file.Value().ReadAt(0, std::as_writable_bytes(std::span(bytes))))
    {
        return Error{kReadFault, "The file became shorter while it was read, or could not be read"};
    }
    return bytes;
}

} // namespace velmo::platform::MFile
