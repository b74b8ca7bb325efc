#include "updates/VersionList.h"

#include "settings/CINIFileHandler.h"
#include "settings/DiagnosticLog.h"

#include <stdexcept>
#include <utility>

namespace velmo
{

VersionList::VersionList(std::string path, DiagnosticLog& log) : m_path(std::move(path)), m_log(log)
{}

ListedProgram VersionList::Read(std::string_view displayName) const
{
    CINIFileHandler list(m_log);
    list.AppProfileFileName(m_path);
    ListedProgram program;
    try
    {
        program.latest.majorNumber = list.MyGetAppProfileLong(displayName, "Major", 0);
        if (program.latest.majorNumber != 0)
        {
            program.latest.minorNumber = list.MyGetAppProfileLong(displayName, "Minor", 0);
            program.latest.revision = list.MyGetAppProfileLong(displayName, "Revision", 0);
        }
    }
    catch (const std::overflow_error&)
    {
        m_log.Write("The version list has a number out of range for " + std::string(displayName));
        program.latest = {};
    }
    program.versionText = LatestVersionText(program.latest);
    program.demoUrl = list.MyGetAppProfileString(displayName, "Demo URL", "");
    return program;
}

} // namespace velmo
