#include "updates/VersionList.h"

#include "settings/CINIFileHandler.h"
#include "settings/DiagnosticLog.h"

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

ListedProgram VersionList::Read(std::string_view displayName) const
{
    CINIFileHandler list(m_log);
    list.AppProfileFileName(m_path);
    ListedProgram program;
    program.latest.majorNumber = ReadNumber(list, displayName, "Major");
    if (program.latest.majorNumber != 0)
    {
        program.latest.minorNumber = ReadNumber(list, displayName, "Minor");
        program.latest.revision = ReadNumber(list, displayName, "Revision");
    }
    program.versionText = LatestVersionText(program.latest);
    program.demoUrl = list.MyGetAppProfileString(displayName, "Demo URL", "");
    return program;
}

} // namespace velmo
