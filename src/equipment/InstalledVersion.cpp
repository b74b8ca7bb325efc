#include "equipment/InstalledVersion.h"

#include "access/AccessFile.h"
#include "platform/ErrorCode.h"
#include "platform/MFile.h"
#include "platform/UserLocale.h"
#include "settings/CINIFileHandler.h"
#include "text/PlainFileName.h"

#include <utility>

namespace velmo
{
namespace
{

namespace MFile = platform::MFile;
using State = InstalledVersion::State;

constexpr const char* kNone = "-";
constexpr const char* kUnknown = "Unknown";

bool IsMissing(const Error& error)
{
    return error.code == error_code::kFileMissing || error.code == error_code::kFolderMissing;
}

EquipmentStatus StatusOf(const InstalledVersion& installed, std::string_view latestDate,
                         std::chrono::year thisYear)
{
    const auto latest = ParseDate(latestDate, thisYear);
    if (!installed.date || !latest)
    {
        return EquipmentStatus::Undecided;
    }
    return CalendarDaysBetween(*installed.date, *latest) > 0 ? EquipmentStatus::NeedsUpdate
                                                             : EquipmentStatus::UpToDate;
}

InstalledVersion Dated(std::string text, std::string_view latestDate, std::chrono::year thisYear)
{
    // A text that says what the grid says of nothing means the same.
    if (text == kNone)
    {
        return {};
    }
    InstalledVersion installed;
    installed.state = State::Dated;
    installed.dateText = std::move(text);
    installed.date = ParseDate(installed.dateText, thisYear);
    installed.status = StatusOf(installed, latestDate, thisYear);
    return installed;
}

std::string PictureDateByInformationFile(const PictureGroup& group, DiagnosticLog& log)
{
    CINIFileHandler information(log);
    information.AppProfileFileName(group.folder + "PicInfo.ini");
    return information.MyGetAppProfileString(group.section, "DatePicturesModified", kNone);
}

std::string PictureDateByFiles(const PictureGroup& group)
{
    const std::string checker = group.folder + std::string(group.checkerFile);
    if (IsPlainFileName(group.checkerFile) && MFile::FileExists(checker))
    {
        if (const auto time = MFile::ModificationTime(checker))
        {
            return FormatDate(platform::LocalDay(time.Value()));
        }
    }
    return MFile::FolderExists(group.folder) ? kUnknown : kNone;
}

} // namespace

std::string InstalledVersion::Text() const
{
    switch (state)
    {
    case State::None:
        return kNone;
    case State::OfUnknownAge:
        return kUnknown;
    case State::Dated:
        break;
    }
    return dateText;
}

std::string InstalledVersion::Reason() const
{
    if (status != EquipmentStatus::Undecided)
    {
        return {};
    }
    if (state == State::None)
    {
        return failure.empty() ? "It is not installed." : failure;
    }
    return date ? "The vendor's list has no date for it." : "What is installed has no date.";
}

Result<std::string> ReadReleaseDate(const std::string& path)
{
    auto field = ReadAccessField(path, "Header", "ReleaseDate");
    if (field && !field.Value())
    {
        return Error{error_code::kElementNotFound, "The first release date is empty."};
    }
    return field ? Result(*std::move(field).Value()) : field.Failure();
}

InstalledVersion InspectDatabase(const std::string& path, std::string_view latestDate,
                                 std::chrono::year thisYear)
{
    auto date = ReadReleaseDate(path);
    if (date)
    {
        return Dated(std::move(date).Value(), latestDate, thisYear);
    }
    InstalledVersion none;
    if (!IsMissing(date.Failure()))
    {
        none.failure =
            date.Failure().description + " (" + std::to_string(date.Failure().code) + ")";
    }
    return none;
}

InstalledVersion InspectPictures(const PictureGroup& group, std::chrono::year thisYear,
                                 DiagnosticLog& log)
{
    std::string date = PictureDateByInformationFile(group, log);
    if (date == kNone)
    {
        date = PictureDateByFiles(group);
    }
    if (date == kUnknown)
    {
        InstalledVersion unknown;
        unknown.state = State::OfUnknownAge;
        unknown.status = EquipmentStatus::NeedsUpdate;
        return unknown;
    }
    return Dated(date.empty() ? kNone : std::move(date), group.latestDate, thisYear);
}

} // namespace velmo
