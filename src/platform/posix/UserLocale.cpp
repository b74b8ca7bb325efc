#include "platform/UserLocale.h"

#include <langinfo.h>
#include <locale.h>

#include <string_view>

namespace velmo::platform
{

namespace
{

char ReadDecimalMark()
{
    const locale_t user = newlocale(LC_NUMERIC_MASK, "", nullptr);
    if (user == nullptr)
    {
        return '.';
    }
    const std::string_view mark = nl_langinfo_l(RADIXCHAR, user);
    const char first = mark.size() == 1 ? mark.front() : '.';
    freelocale(user);
    return first;
}

} // namespace

char DecimalMark()
{
    static const char mark = ReadDecimalMark();
    return mark;
}

} // namespace velmo::platform
