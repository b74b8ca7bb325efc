#include "updates/ProgramRow.h"

#include "catalogue/CVelmoProgramCommunicator.h"
#include "catalogue/ProgramCatalogue.h"
#include "updates/StartupOptions.h"

namespace velmo
{
namespace
{

bool CanBeLocated(const ProgramRow& row)
{
    return LocatorNumberOfIndex(row.index) != kNoLocatorNumber;
}

std::string_view StatusText(UpdateStatus status)
{
    switch (status)
    {
    case UpdateStatus::UpToDate:
        return "No";
    case UpdateStatus::NeedsUpdate:
        return "Yes";
    case UpdateStatus::TryDemo:
        return "No (Try Demo)";
    case UpdateStatus::TryDemoOfUnknown:
        return "? (Try Demo)";
    case UpdateStatus::Unknown:
        break;
    }
    return "?";
}

} // namespace

std::string ProgramRow::Name() const
{
    return std::string(NameOfIndex(index));
}

UpdateStatus ProgramRow::Status() const
{
    if (latest.majorNumber == 0)
    {
        return UpdateStatus::Unknown;
    }
    if (IsInstalled())
    {
        return IsUpToDate(installed, latest) ? UpdateStatus::UpToDate : UpdateStatus::NeedsUpdate;
    }
    return CanBeLocated(*this) ? UpdateStatus::TryDemo : UpdateStatus::TryDemoOfUnknown;
}

ProgramVersion LocatedVersion(CVelmoProgramCommunicator& locator, std::int32_t index,
                              const SharedValues& stores)
{
    ProgramVersion version;
    const std::int32_t number = LocatorNumberOfIndex(index);
    if (number != kNoLocatorNumber)
    {
        locator.SetFileVersion(number, version.majorNumber, version.minorNumber, version.revision,
                               stores);
    }
    return version;
}

std::string CellText(const ProgramRow& row, ProgramColumn column)
{
    switch (column)
    {
    case ProgramColumn::Program:
        return row.Name();
    case ProgramColumn::CheckOnStartup:
        return std::string(row.startupOption ? StartupOptionText(*row.startupOption) : "-");
    case ProgramColumn::InstalledVersion:
        if (row.IsInstalled())
        {
            return InstalledVersionText(row.installed);
        }
        return CanBeLocated(row) ? "Not Installed" : "?";
    case ProgramColumn::LatestVersion:
        return LatestVersionText(row.latest);
    case ProgramColumn::NeedToUpdate:
        return std::string(StatusText(row.Status()));
    }
    return {};
}

StatusNotice StatusNoticeOf(const ProgramRow& program)
{
    const std::string name = program.Name();
    switch (program.Status())
    {
    case UpdateStatus::NeedsUpdate:
        return {name + " needs to be updated.  Click \"Download Update for " + name +
                    "\" to download and install the update.",
                "Need to Update"};
    case UpdateStatus::UpToDate:
        return {name + " is up to date.", "Up to Date"};
    default:
        return {"There was a problem in getting the update status for " + name + ".",
                "Update Status Unknown"};
    }
}

} // namespace velmo
