#include "equipment/InstalledPictures.h"

#include "equipment/UnitedStatesDate.h"
#include "equipment/UpdateFlag.h"
#include "platform/MFile.h"
#include "settings/CINIFileHandler.h"

namespace velmo
{
namespace
{

namespace MFile = platform::MFile;

constexpr const char* kNone = "-";
constexpr const char* kUnknown = "Unknown";

std::string DateByInformationFile(const PictureGroup& group, DiagnosticLog& log)
{
    CINIFileHandler information(log);
    information.AppProfileFileName(group.folder + "PicInfo.ini");
    return information.MyGetAppProfileString(group.section, "DatePicturesModified", kNone);
}

std::string DateByFiles(const PictureGroup& group)
{
    const bool isPlainName = group.checkerFile.find_first_of("\\/:") == std::string::npos;
    const std::string checker = group.folder + group.checkerFile;
    if (!group.checkerFile.empty() && isPlainName && MFile::FileExists(checker))
    {
        if (const auto time = MFile::ModificationTime(checker))
        {
            return FormatDate(LocalDay(time.Value()));
        }
    }
    return MFile::FolderExists(group.folder) ? kUnknown : kNone;
}

} // namespace

InstalledPictures InspectPictures(const PictureGroup& group, std::chrono::year thisYear,
                                  DiagnosticLog& log)
{
    std::string installed = DateByInformationFile(group, log);
    if (installed == kNone)
    {
        installed = DateByFiles(group);
    }
    const std::string flag =
        installed == kUnknown ? YesOrNo(true) : UpdateFlag(installed, group.latestDate, thisYear);
    return {installed.empty() ? kNone : installed,
            group.latestDate.empty() ? " " : group.latestDate, flag};
}

} // namespace velmo
