#include "updates/StatusNotice.h"

#include "updates/ProgramStatusList.h"

namespace velmo
{

StatusNotice StatusNoticeOf(const ListRow& program)
{
    const std::string& name = program.key;
    const std::string& status = program.cells[ProgramStatusList::NeedToUpdate - 1];
    if (status == "Yes")
    {
        return {name + " needs to be updated.  Click \"Download Update for " + name +
                    "\" to download and install the update.",
                "Need to Update"};
    }
    if (status == "No")
    {
        return {name + " is up to date.", "Up to Date"};
    }
    return {"There was a problem in getting the update status for " + name + ".",
            "Update Status Unknown"};
}

} // namespace velmo
