#include "tests/support/windows/WindowsAnswers.h"

#include "platform/AnsiText.h"

#include <windows.h>

#include <oleauto.h>
#include <winver.h>

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

std::optional<std::string> AskVersionDll(const std::string& path, const std::string& block)
{
    const std::string ansi = platform::ToAnsi(path);
    DWORD handle = 0;
    std::string data(GetFileVersionInfoSizeA(ansi.c_str(), &handle), '\0');
    const auto bytes = static_cast<DWORD>(data.size());
    if (data.empty() || !GetFileVersionInfoA(ansi.c_str(), 0, bytes, data.data()))
    {
        return std::nullopt;
    }
    void* value = nullptr;
    UINT size = 0;
    const bool found = VerQueryValueA(data.data(), block.c_str(), &value, &size);
    return found ? std::string(static_cast<const char*>(value), size) : std::string();
}

} // namespace velmo::test
