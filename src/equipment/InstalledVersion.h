#pragma once

#include "platform/Result.h"
#include "text/UnitedStatesDate.h"

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace velmo
{

class DiagnosticLog;

/// What the dates of something installed and of the vendor's issue of it say about updating it.
enum class EquipmentStatus : std::uint8_t
{
    Undecided, ///< Not installed, or one of them is no date.
    UpToDate,
    NeedsUpdate,
};

/// What is installed of a database or of a group of pictures.
struct InstalledVersion
{
    enum class State : std::uint8_t
    {
        None, ///< Not installed, or it does not say its version.
        OfUnknownAge,
        Dated,
    };

    State state = State::None;
    std::string dateText; ///< Only for Dated: as it is written there, which may be no date at all.
    std::optional<DateAndTime> date; ///< Only for Dated, when the text is a date.
    EquipmentStatus status = EquipmentStatus::Undecided;
    std::string failure; ///< Why what is there does not say its version; only for None.

    /// As the equipment grid shows it: the date's text, "Unknown", or "-".
    [[nodiscard]] std::string Text() const;

    /// A sentence on why the status is undecided; empty when it is decided.
    [[nodiscard]] std::string Reason() const;
};

/// Field "ReleaseDate" of the first record of table "Header" of the Access file at @a path, as text.
/// Errors: those of ReadAccessField() (AccessFile.h), 1168 also when the field is empty.
[[nodiscard]] Result<std::string> ReadReleaseDate(const std::string& path);

/**
    Compares the release date of the Access file at @a path with the vendor's latest date: the latter
    must be a day or more later for an update. Times of day do not matter. The file is never locked or
    changed. One thread at a time.
 */
[[nodiscard]] InstalledVersion InspectDatabase(const std::string& path, std::string_view latestDate,
                                               std::chrono::year thisYear);

/// A section's group of pictures, as the vendor's list names it.
struct PictureGroup
{
    std::string section; ///< Also the name of the section in the folder's own "PicInfo.ini".
    std::string folder;  ///< Where its pictures are installed; ends in "\".
    std::string_view latestDate;
    std::string_view checkerFile; ///< A picture whose age may stand for the group's; may be empty.
};

/**
    Decides how old the installed pictures are: by "PicInfo.ini" in their folder, else by the
    checker file's time, else of unknown age as long as there is a folder. Pictures of unknown age always
    need an update. A checker file that is no plain file name is passed over: the list may only name
    files in the folder. One thread at a time.
 */
[[nodiscard]] InstalledVersion InspectPictures(const PictureGroup& group,
                                               std::chrono::year thisYear, DiagnosticLog& log);

} // namespace velmo
