#include "platform/FileReader.h"

#include "platform/windows/WideText.h"

#include <windows.h>

#include <algorithm>

namespace velmo::platform
{

struct FileReader::Handle
{
    HANDLE file = INVALID_HANDLE_VALUE;
    std::uint64_t size = 0;

    ~Handle()
    {
        if (file != INVALID_HANDLE_VALUE)
        {
            CloseHandle(file);
        }
    }
};

Result<FileReader> FileReader::Open(std::string_view path)
{
    auto handle = std::make_unique<Handle>();
    handle->file = CreateFileW(Wide(path).c_str(), GENERIC_READ,
                               FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                               OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    LARGE_INTEGER size{};
    if (handle->file == INVALID_HANDLE_VALUE || !GetFileSizeEx(handle->file, &size))
    {
        return LastSystemError();
    }
    handle->size = static_cast<std::uint64_t>(size.QuadPart);
    return FileReader(std::move(handle));
}

Result<FileReader> FileReader::OpenOwnProgram()
{
    constexpr std::size_t kLongestPath = 32'768;
    std::wstring path(kLongestPath, L'\0');
    path.resize(GetModuleFileNameW(nullptr, path.data(), static_cast<DWORD>(path.size())));
    return Open(Narrow(path));
}

bool FileReader::ReadAt(std::uint64_t offset, std::span<std::byte> target) const
{
    constexpr std::size_t kMostAtOnce = 1U << 30;
    while (!target.empty())
    {
        OVERLAPPED place{};
        place.Offset = static_cast<DWORD>(offset);
        place.OffsetHigh = static_cast<DWORD>(offset >> 32);
        DWORD n = 0;
        const auto wanted = static_cast<DWORD>(std::min(target.size(), kMostAtOnce));
        if (!ReadFile(m_handle->file, target.data(), wanted, &n, &place) || n == 0)
        {
            return false;
        }
        offset += n;
        target = target.subspan(n);
    }
    return true;
}

FileReader::FileReader(std::unique_ptr<Handle> handle) : m_handle(std::move(handle)) {}
FileReader::FileReader(FileReader&& other) noexcept = default;
FileReader& FileReader::operator=(FileReader&& other) noexcept = default;
FileReader::~FileReader() = default;

std::uint64_t FileReader::Size() const
{
    return m_handle->size;
}

} // namespace velmo::platform
