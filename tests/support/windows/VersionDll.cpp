#include "tests/support/windows/VersionDll.h"

#include "platform/AnsiText.h"

#include <windows.h>

#include <winver.h>

#include <array>

namespace velmo::test
{

std::optional<VersionDll> VersionDll::Ask(const std::string& path)
{
    const std::string ansi = platform::ToAnsi(path);
    DWORD handle = 0;
    const DWORD size = GetFileVersionInfoSizeA(ansi.c_str(), &handle);
    if (size == 0)
    {
        return std::nullopt;
    }
    VersionDll answers;
    answers.m_data.resize(size);
    if (!GetFileVersionInfoA(ansi.c_str(), 0, size, answers.m_data.data()))
    {
        return std::nullopt;
    }
    return answers;
}

std::string VersionDll::Bytes(const std::string& block)
{
    void* value = nullptr;
    UINT size = 0;
    if (!VerQueryValueA(m_data.data(), block.c_str(), &value, &size))
    {
        return {};
    }
    return {static_cast<const char*>(value), size};
}

std::optional<std::string> VersionDll::Text(const std::string& block)
{
    void* value = nullptr;
    UINT size = 0;
    if (!VerQueryValueA(m_data.data(), block.c_str(), &value, &size) || size == 0)
    {
        return std::nullopt;
    }
    return platform::FromAnsi(static_cast<const char*>(value));
}

std::string VersionDll::LanguageName(std::uint16_t language)
{
    // The returned length counts the terminating zero or not, as the system pleases.
    std::array<char, 256> name{};
    VerLanguageNameA(language, name.data(), static_cast<DWORD>(name.size() - 1));
    return platform::FromAnsi(name.data());
}

} // namespace velmo::test
