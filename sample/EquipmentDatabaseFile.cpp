#include "sample/EquipmentDatabaseFile.h"

#include "access/AccessFile.h"
#include "text/UnitedStatesDate.h"

#include <bit>
#include <cstdint>
#include <cstring>
#include <numeric>
#include <stdexcept>

// Defined in EquipmentTemplates.S.
extern "C"
{
    extern const char velmo_access_small_begin[], velmo_access_small_end[];
    extern const char velmo_access_2000_begin[], velmo_access_2000_end[];
    extern const char velmo_access_2003_begin[], velmo_access_2003_end[];
    extern const char velmo_access_2007_begin[], velmo_access_2007_end[];
    extern const char velmo_access_2010_begin[], velmo_access_2010_end[];
}

namespace velmo::sample
{
namespace
{

using std::chrono::sys_days;
using std::chrono::year_month_day;

struct Template
{
    const char* begin;
    const char* end;
    year_month_day released;
};

using namespace std::chrono_literals;

const Template kOlder[] = {
    {velmo_access_small_begin, velmo_access_small_end, 1998y / 12 / 1},
    {velmo_access_2000_begin, velmo_access_2000_end, 2004y / 3 / 15},
    {velmo_access_2003_begin, velmo_access_2003_end, 2010y / 1 / 20},
};
const Template kOf2007{velmo_access_2007_begin, velmo_access_2007_end, 2012y / 2 / 29};

const Template& TemplateFor(std::string_view name)
{
    if (name.ends_with(".accdb"))
    {
        return kOf2007;
    }
    const auto sum =
        std::accumulate(name.begin(), name.end(), std::size_t{0},
                        [](auto all, char c) { return all + static_cast<unsigned char>(c); });
    return kOlder[sum % std::size(kOlder)];
}

/// A date as the file has it.
std::string Stored(year_month_day date)
{
    static_assert(std::endian::native == std::endian::little);
    const auto days = static_cast<double>((sys_days(date) - kDayZero).count());
    std::string bytes(sizeof days, '\0');
    std::memcpy(bytes.data(), &days, sizeof days);
    return bytes;
}

bool SaysReleased(const std::string& file, year_month_day date)
{
    auto opened = AccessFile::OpenBytes(std::as_bytes(std::span(file)));
    if (!opened)
    {
        return false;
    }
    const auto field = std::move(opened).Value().FirstRecordField("Header", "ReleaseDate");
    return field && field.Value().text == FormatDate(sys_days(date));
}

} // namespace

std::string EquipmentDatabaseFile(std::string_view name, year_month_day released)
{
    const Template& original = TemplateFor(name);
    const std::string before = Stored(original.released);
    const std::string after = Stored(released);
    std::string file(original.begin, original.end);
    // The same eight bytes may stand elsewhere too: those that the reader looks at are the right ones.
    for (std::size_t at = file.find(before); at != std::string::npos;
         at = file.find(before, at + 1))
    {
        file.replace(at, after.size(), after);
        if (SaysReleased(file, released))
        {
            return file;
        }
        file.replace(at, before.size(), before);
    }
    throw std::logic_error("A template does not have the date that it should have");
}

std::string TextDatedDatabaseFile()
{
    return {velmo_access_2010_begin, velmo_access_2010_end};
}

} // namespace velmo::sample
