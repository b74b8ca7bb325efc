#include "platform/OpenFile.h"

#include "platform/windows/WideText.h"

#include <windows.h>

#include <algorithm>

namespace velmo::platform
{
namespace
{

constexpr std::size_t kMostAtOnce = 1U << 30;

HANDLE HandleOf(std::intptr_t handle)
{
    return reinterpret_cast<HANDLE>(handle);
}

struct Way
{
    DWORD access;
    DWORD creation;
};

Way WayFor(OpenFile::For purpose)
{
    switch (purpose)
    {
    case OpenFile::For::Reading:
        return {GENERIC_READ, OPEN_EXISTING};
    case OpenFile::For::Appending:
        return {FILE_APPEND_DATA | FILE_READ_ATTRIBUTES | SYNCHRONIZE, OPEN_ALWAYS};
    case OpenFile::For::Anew:
        break;
    }
    return {GENERIC_WRITE, CREATE_NEW};
}

} // namespace

Result<OpenFile> OpenFile::Open(std::string_view path, For purpose)
{
    const Way way = WayFor(purpose);
    const std::wstring name = Wide(path);
    if (purpose == For::Anew && !DeleteFileW(name.c_str()))
    {
        const DWORD error = GetLastError();
        if (error != ERROR_FILE_NOT_FOUND && error != ERROR_PATH_NOT_FOUND)
        {
            return SystemError(error);
        }
    }
    HANDLE handle = CreateFileW(name.c_str(), way.access,
                                FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE, nullptr,
                                way.creation, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (handle == INVALID_HANDLE_VALUE)
    {
        return LastSystemError();
    }
    OpenFile file(reinterpret_cast<std::intptr_t>(handle));
    if (GetFileType(handle) != FILE_TYPE_DISK)
    {
        return SystemError(ERROR_ACCESS_DENIED);
    }
    return file;
}

OpenFile::~OpenFile()
{
    if (m_handle != kNone)
    {
        CloseHandle(HandleOf(m_handle));
    }
}

std::uint64_t OpenFile::Size() const
{
    LARGE_INTEGER size{};
    return GetFileSizeEx(HandleOf(m_handle), &size) ? static_cast<std::uint64_t>(size.QuadPart) : 0;
}

bool OpenFile::ReadAt(std::uint64_t offset, std::span<std::byte> target) const
{
    while (!target.empty())
    {
        OVERLAPPED place{};
        place.Offset = static_cast<DWORD>(offset);
        place.OffsetHigh = static_cast<DWORD>(offset >> 32);
        DWORD n = 0;
        const auto wanted = static_cast<DWORD>(std::min(target.size(), kMostAtOnce));
        if (!ReadFile(HandleOf(m_handle), target.data(), wanted, &n, &place) || n == 0)
        {
            return false;
        }
        offset += n;
        target = target.subspan(n);
    }
    return true;
}

Result<Done> OpenFile::Write(std::string_view bytes) const
{
    while (!bytes.empty())
    {
        DWORD n = 0;
        const auto wanted = static_cast<DWORD>(std::min(bytes.size(), kMostAtOnce));
        if (!WriteFile(HandleOf(m_handle), bytes.data(), wanted, &n, nullptr))
        {
            return LastSystemError();
        }
        bytes.remove_prefix(n);
    }
    return Done{};
}

Result<Done> OpenFile::Flush() const
{
    return FlushFileBuffers(HandleOf(m_handle)) ? Result<Done>(Done{}) : LastSystemError();
}

} // namespace velmo::platform
