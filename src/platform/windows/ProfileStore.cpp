#include "platform/ProfileStore.h"

#include "platform/windows/WideText.h"

#include <windows.h>

namespace velmo::platform::ProfileStore
{
namespace
{

std::optional<std::wstring> Wide(std::optional<std::string_view> text)
{
    return text ? std::optional<std::wstring>(platform::Wide(*text)) : std::nullopt;
}

const wchar_t* PointerOrNull(const std::optional<std::wstring>& text)
{
    return text ? text->c_str() : nullptr;
}

Result<Done> DoneOr(BOOL succeeded)
{
    return succeeded ? Result<Done>(Done{}) : LastSystemError();
}

} // namespace

std::string ReadText(std::string_view section, std::string_view key, std::string_view defaultText,
                     std::size_t bufferSize, std::string_view file)
{
    std::wstring buffer(bufferSize, L'\0');
    buffer.resize(
        GetPrivateProfileStringW(platform::Wide(section).c_str(), platform::Wide(key).c_str(),
                                 platform::Wide(defaultText).c_str(), buffer.data(),
                                 static_cast<DWORD>(bufferSize), platform::Wide(file).c_str()));
    return Narrow(buffer);
}

std::string ReadSection(std::string_view section, std::size_t bufferSize, std::string_view file)
{
    std::wstring buffer(bufferSize, L'\0');
    buffer.resize(GetPrivateProfileSectionW(platform::Wide(section).c_str(), buffer.data(),
                                            static_cast<DWORD>(bufferSize),
                                            platform::Wide(file).c_str()));
    return Narrow(buffer);
}

Result<Done> WriteText(std::string_view section, std::optional<std::string_view> key,
                       std::optional<std::string_view> value, std::string_view file)
{
    const auto wideKey = Wide(key);
    const auto wideValue = Wide(value);
    return DoneOr(WritePrivateProfileStringW(platform::Wide(section).c_str(),
                                             PointerOrNull(wideKey), PointerOrNull(wideValue),
                                             platform::Wide(file).c_str()));
}

Result<Done> WriteSection(std::string_view section, std::string_view block, std::string_view file)
{
    // The wide text has a NUL of its own at the end, which ends the block.
    const std::wstring lines = platform::Wide(block) + L'\0';
    return DoneOr(WritePrivateProfileSectionW(platform::Wide(section).c_str(), lines.c_str(),
                                              platform::Wide(file).c_str()));
}

} // namespace velmo::platform::ProfileStore
