#include "platform/UserLocale.h"

#include <windows.h>

#include <array>

namespace velmo::platform
{

namespace
{

char ReadDecimalMark()
{
    std::array<wchar_t, 8> mark{};
    const int n = GetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL, mark.data(),
                                 static_cast<int>(mark.size()));
    constexpr int kOneWithNul = 2;
    return n == kOneWithNul && mark[0] < 0x80 ? static_cast<char>(mark[0]) : '.';
}

} // namespace

char DecimalMark()
{
    static const char mark = ReadDecimalMark();
    return mark;
}

} // namespace velmo::platform
