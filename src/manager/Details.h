#pragma once

#include <span>
#include <string>
#include <string_view>

namespace velmo
{

class ListsFetch;
class StatusBoxModel;
struct ProgramRow;

/// What the details are made of.
struct DetailsSources
{
    std::string_view programVersion;
    const ListsFetch& lists;
    const StatusBoxModel& statusBox;
    std::span<const ProgramRow> programs;
    std::string_view settingsFile;
    std::string_view logFile;
};

/// What support asks for first, as lines of text for the clipboard: versions, folders, how the last
/// fetch of the lists went, and what is installed. Reads nothing but its sources.
[[nodiscard]] std::string DetailsText(const DetailsSources& sources);

} // namespace velmo
