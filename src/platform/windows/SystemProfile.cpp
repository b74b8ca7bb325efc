#include "platform/SystemProfile.h"

#include "platform/windows/WideText.h"

#include <windows.h>

namespace velmo::platform
{
namespace
{

constexpr std::size_t kFirstBuffer = 32'767;

Profile ReadSection(std::string_view section, std::string_view file)
{
    std::wstring buffer(kFirstBuffer, L'\0');
    DWORD size = 0;
    // Two short of the buffer's size means that there is more.
    while ((size = GetPrivateProfileSectionW(Wide(section).c_str(), buffer.data(),
                                             static_cast<DWORD>(buffer.size()),
                                             Wide(file).c_str())) == buffer.size() - 2)
    {
        buffer.resize(buffer.size() * 2);
    }
    return {section, Narrow(std::wstring_view(buffer).substr(0, size))};
}

Result<Done> WriteText(std::string_view section, std::optional<std::string_view> key,
                       std::optional<std::string_view> value, std::string_view file)
{
    const std::wstring wideKey = Wide(key.value_or(""));
    const std::wstring wideValue = Wide(value.value_or(""));
    const bool written =
        WritePrivateProfileStringW(Wide(section).c_str(), key ? wideKey.c_str() : nullptr,
                                   value ? wideValue.c_str() : nullptr, Wide(file).c_str());
    return written ? Result<Done>(Done{}) : LastSystemError();
}

Result<Done> WriteSection(std::string_view section, std::string_view block, std::string_view file)
{
    // The wide text has a NUL of its own at the end, which ends the block.
    const std::wstring lines = Wide(block) + L'\0';
    return WritePrivateProfileSectionW(Wide(section).c_str(), lines.c_str(), Wide(file).c_str())
               ? Result<Done>(Done{})
               : LastSystemError();
}

constexpr SystemProfile kFunctions{ReadSection, WriteText, WriteSection};

} // namespace

const SystemProfile* TheSystemsProfile()
{
    return &kFunctions;
}

} // namespace velmo::platform
