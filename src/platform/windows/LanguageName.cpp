#include "platform/LanguageName.h"

#include "platform/windows/WideText.h"

#include <windows.h>

#include <array>

namespace velmo::platform
{

std::string LanguageName(std::uint16_t language)
{
    // Whether the answer's length counts the zero, and what it is when the name was cut, differs between
    // systems: the text ends at its zero.
    std::array<wchar_t, 256> name{};
    VerLanguageNameW(language, name.data(), static_cast<DWORD>(name.size() - 1));
    return Narrow(name.data());
}

} // namespace velmo::platform
