#pragma once

#include <chrono>
#include <string>
#include <string_view>

namespace velmo
{

class DiagnosticLog;

/// A section's group of pictures, as the vendor's list names it.
struct PictureGroup
{
    std::string section; ///< Also the name of the section in the folder's own "PicInfo.ini".
    std::string folder;  ///< Where its pictures are installed; ends in "\".
    std::string latestDate;
    std::string
        checkerFile; ///< Name of the picture whose age may stand for the group's; may be empty.
};

/// What the equipment grid says about a group of pictures.
struct InstalledPictures
{
    std::string installedDate = "-"; ///< A date, "Unknown", or "-" = not installed.
    std::string latestDate;          ///< As in the list; " " when the list has none.
    std::string needsUpdate = "-";   ///< "Yes", "No", or "-" = cannot be decided.
};

/**
    Decides how old the installed pictures are: by "PicInfo.ini" in their folder, else by the
    checker file's time, else "Unknown" as long as there is a folder. Pictures of unknown age always
    need an update. A checker file with a path is passed over: the list may only name files in the
    folder. One thread at a time.
 */
[[nodiscard]] InstalledPictures InspectPictures(const PictureGroup& group,
                                                std::chrono::year thisYear, DiagnosticLog& log);

} // namespace velmo
