#pragma once

#include <string>
#include <string_view>

namespace velmo
{

class ListsDownload;
class ListViewModel;
class StatusBoxModel;

/// What the details are made of.
struct DetailsSources
{
    std::string_view programVersion;
    const ListsDownload& lists;
    const StatusBoxModel& statusBox;
    const ListViewModel& programs;
    std::string_view settingsFile;
    std::string_view logFile;
};

/// What support asks for first, as lines of text for the clipboard: versions, folders, how the last
/// fetch of the lists went, and what is installed. Reads nothing but its sources.
[[nodiscard]] std::string DetailsText(const DetailsSources& sources);

} // namespace velmo
