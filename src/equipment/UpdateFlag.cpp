#include "equipment/UpdateFlag.h"

#include "equipment/UnitedStatesDate.h"

namespace velmo
{

std::string YesOrNo(bool value)
{
    return value ? "Yes" : "No";
}

std::string UpdateFlag(std::string_view installedDate, std::string_view latestDate,
                       std::chrono::year thisYear)
{
    const auto installed = ParseDate(installedDate, thisYear);
    const auto latest = ParseDate(latestDate, thisYear);
    return installed && latest ? YesOrNo(CalendarDaysBetween(*installed, *latest) > 0) : "-";
}

} // namespace velmo
