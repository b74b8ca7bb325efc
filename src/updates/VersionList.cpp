#include "updates/VersionList.h"

#include "settings/CINIFileHandler.h"
#include "settings/DiagnosticLog.h"
#include "updates/ProgramRow.h"

#include <stdexcept>
#include <utility>

namespace velmo
{

VersionList::VersionList(std::string path, DiagnosticLog& log) : m_path(std::move(path)), m_log(log)
{}

std::int32_t VersionList::ReadNumber(const CINIFileHandler& list, std::string_view displayName,
                                     std::string_view key) const
{
    try
    {
        return list.MyGetAppProfileLong(displayName, key, 0);
    }
    catch (const std::overflow_error&)
    {
        m_log.Write("The version list has a number out of range: " + std::string(displayName) +
                    ", " + std::string(key));
        return 0;
    }
}

void VersionList::Read(ProgramRow& row) const
{
    CINIFileHandler list(m_log);
    list.AppProfileFileName(m_path);
    const std::string name = row.Name();
    row.latest = {};
    row.latest.majorNumber = ReadNumber(list, name, "Major");
    if (row.latest.majorNumber != 0)
    {
        row.latest.minorNumber = ReadNumber(list, name, "Minor");
        row.latest.revision = ReadNumber(list, name, "Revision");
    }
    row.demoAddress = list.MyGetAppProfileString(name, "Demo URL", "");
}

} // namespace velmo
