#include "tests/support/windows/WindowsAnswers.h"

#include "platform/AnsiText.h"

#include <windows.h>

#include <oleauto.h>
#include <winver.h>

#include <array>
#include <cmath>

namespace velmo::test
{

std::optional<std::chrono::seconds> SystemParsedDate(const std::string& text)
{
    constexpr LCID kUnitedStates = 0x409;
    std::wstring wide(text.begin(), text.end());
    DATE date = 0;
    if (FAILED(VarDateFromStr(wide.data(), kUnitedStates, 0, &date)))
    {
        return std::nullopt;
    }
    // Days, whose part after the point is the time of day also where they are negative.
    const double day = std::trunc(date);
    const double time = std::round(std::abs(date - day) * 86'400);
    return std::chrono::seconds(static_cast<std::int64_t>(day * 86'400 + time));
}

std::optional<VersionDll> VersionDll::Ask(const std::string& path)
{
    const std::string ansi = platform::ToAnsi(path);
    DWORD handle = 0;
    VersionDll answers;
    answers.m_data.resize(GetFileVersionInfoSizeA(ansi.c_str(), &handle));
    const auto size = static_cast<DWORD>(answers.m_data.size());
    const bool found =
        size != 0 && GetFileVersionInfoA(ansi.c_str(), 0, size, answers.m_data.data());
    return found ? std::optional(std::move(answers)) : std::nullopt;
}

std::string VersionDll::Bytes(const std::string& block)
{
    void* value = nullptr;
    UINT size = 0;
    const bool found = VerQueryValueA(m_data.data(), block.c_str(), &value, &size);
    return found ? std::string(static_cast<const char*>(value), size) : std::string();
}

std::optional<std::string> VersionDll::Text(const std::string& block)
{
    const std::string bytes = Bytes(block);
    return bytes.empty() ? std::nullopt : std::optional(platform::FromAnsi(bytes.c_str()));
}

std::string VersionDll::LanguageName(std::uint16_t language)
{
    // The returned length counts the terminating zero or not, as the system pleases.
    std::array<char, 256> name{};
    VerLanguageNameA(language, name.data(), static_cast<DWORD>(name.size() - 1));
    return platform::FromAnsi(name.data());
}

} // namespace velmo::test
