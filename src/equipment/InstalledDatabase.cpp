#include "equipment/InstalledDatabase.h"

#include "equipment/AccessFile.h"
#include "equipment/UpdateFlag.h"
#include "settings/DiagnosticLog.h"

#include <optional>

namespace velmo
{
namespace
{

/// Why a field has no text.
Error NoValue(AccessField::State state)
{
    constexpr std::int32_t kNotFound = 1168; // Windows' code for "element not found"
    switch (state)
    {
    case AccessField::State::NoTable:
        return {kNotFound, "There is no table \"Header\"."};
    case AccessField::State::NoField:
        return {kNotFound, "Table \"Header\" has no field \"ReleaseDate\"."};
    case AccessField::State::NoRows:
        return {kNotFound, "Table \"Header\" is empty."};
    default:
        return {kNotFound, "The first \"ReleaseDate\" is empty."};
    }
}

Result<std::string> ReleaseDate(const std::string& path)
{
    auto file = AccessFile::Open(path);
    if (!file)
    {
        return file.Failure();
    }
    const auto field = std::move(file).Value().FirstRecordField("Header", "ReleaseDate");
    if (!field)
    {
        return field.Failure();
    }
    return field.Value().state == AccessField::State::Value ? Result(field.Value().text)
                                                            : NoValue(field.Value().state);
}

bool IsMissing(const Error& error)
{
    constexpr std::int32_t kFileMissing = 2;
    constexpr std::int32_t kFolderMissing = 3;
    return error.code == kFileMissing || error.code == kFolderMissing;
}

} // namespace

InstalledDatabase InspectDatabase(const std::string& path, std::string_view latestDate,
                                  std::chrono::year thisYear, DiagnosticLog& log)
{
    const auto date = ReleaseDate(path);
    if (!date)
    {
        if (!IsMissing(date.Failure()))
        {
            log.Failure("Reading the release date of " + path, date.Failure());
        }
        return {};
    }
    return {date.Value(), UpdateFlag(date.Value(), latestDate, thisYear)};
}

} // namespace velmo
