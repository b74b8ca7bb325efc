#pragma once

#include "updates/ProgramVersion.h"

#include <string>
#include <string_view>

namespace velmo
{

class CINIFileHandler;
class DiagnosticLog;

/// What the version list says of one program.
struct ListedProgram
{
    ProgramVersion latest; ///< Major number 0: the list has no version of it.
    std::string versionText;
    std::string demoUrl; ///< Address of the setup as currently published; may be empty.
};

/// The downloaded version list, one section per program. A missing file, section or key reads as
/// zeros and empty texts; a number out of range too, with a line in the log.
class VersionList
{
  public:
    VersionList(std::string path, DiagnosticLog& log);

    [[nodiscard]] ListedProgram Read(std::string_view displayName) const;

  private:
    [[nodiscard]] std::int32_t ReadNumber(const CINIFileHandler& list, std::string_view displayName,
                                          std::string_view key) const;

    std::string m_path;
    DiagnosticLog& m_log;
};

} // namespace velmo
