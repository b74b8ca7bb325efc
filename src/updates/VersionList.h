#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace velmo
{

class CINIFileHandler;
class DiagnosticLog;
struct ProgramRow;

/// The downloaded version list, one section per program. A missing file, section or key reads as
/// zeros and empty texts; a number out of range too, with a line in the log.
class VersionList
{
  public:
    VersionList(std::string path, DiagnosticLog& log);

    /// Sets what the list says of the row's program: its latest version and its setup's address.
    void Read(ProgramRow& row) const;

  private:
    [[nodiscard]] std::int32_t ReadNumber(const CINIFileHandler& list, std::string_view displayName,
                                          std::string_view key) const;

    std::string m_path;
    DiagnosticLog& m_log;
};

} // namespace velmo
