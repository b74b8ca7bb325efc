#include "platform/WholeFile.h"

#include "platform/windows/WideText.h"

#include <windows.h>

namespace velmo::platform
{
namespace
{

/// A file that is just being read keeps its place for that moment.
constexpr DWORD kLongestReading = 5'000;

} // namespace

std::string WrittenPath(std::string_view path)
{
    const DWORD attributes = GetFileAttributesW(Wide(path).c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES || (attributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0)
    {
        return std::string(path);
    }
    const auto file = OpenFile::Open(path, OpenFile::For::Reading);
    if (!file)
    {
        return std::string(path);
    }
    constexpr DWORD kLongestPath = 32'768;
    std::wstring final(kLongestPath, L'\0');
    final.resize(GetFinalPathNameByHandleW(reinterpret_cast<HANDLE>(file.Value().Handle()),
                                           final.data(), kLongestPath, FILE_NAME_NORMALIZED));
    return final.empty() ? std::string(path) : Narrow(final);
}

Result<OpenFile> OpenBeside(std::string_view path)
{
    const DWORD attributes = GetFileAttributesW(Wide(path).c_str());
    constexpr DWORD kProtected = FILE_ATTRIBUTE_READONLY | FILE_ATTRIBUTE_DIRECTORY;
    if (attributes != INVALID_FILE_ATTRIBUTES && (attributes & kProtected) != 0)
    {
        return SystemError(ERROR_ACCESS_DENIED);
    }
    return OpenFile::Open(std::string(path) + ".new", OpenFile::For::Anew);
}

Result<Done> PutInPlace(std::string_view path, MFile::Keeping keeping)
{
    const std::wstring from = Wide(path) + L".new";
    const std::wstring to = Wide(path);
    const DWORD through = keeping == MFile::Keeping::Passing ? 0 : MOVEFILE_WRITE_THROUGH;
    const ULONGLONG began = GetTickCount64();
    while (!MoveFileExW(from.c_str(), to.c_str(), MOVEFILE_REPLACE_EXISTING | through))
    {
        const DWORD error = GetLastError();
        const bool isBusy = error == ERROR_ACCESS_DENIED || error == ERROR_SHARING_VIOLATION;
        if (!isBusy || GetTickCount64() - began > kLongestReading)
        {
            return SystemError(error);
        }
        Sleep(2);
    }
    return Done{};
}

} // namespace velmo::platform
