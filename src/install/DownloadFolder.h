#pragma once

#include "platform/Result.h"

#include <string>

namespace velmo
{

class DiagnosticLog;

/**
    The folder that setups are downloaded to and started from: "Temp\" in the vendor's common folder.
    Setups run with the user's rights, so it holds nothing but what was put there since Prepare(), and
    is no link to another place. What fails leaves a line in the log. User-interface thread.
 */
class DownloadFolder
{
  public:
    /// @a commonFolder ends in "\"; a lone "\" = it is not known, and then there is no folder: any
    /// other one that happens to bear the name is left alone.
    DownloadFolder(const std::string& commonFolder, DiagnosticLog& log);

    [[nodiscard]] const std::string& Path() const { return m_path; } ///< Ends in "\"; may be empty.

    /// Makes it anew, or empties it. The error is the first step's that failed.
    Result<Done> Prepare() const;

    /// Whether files may be put into it: not when somebody set a link in its place.
    [[nodiscard]] Result<Done> CheckUsable() const;

    /// Removes the folder and its files, as far as none of them still runs.
    void Remove() const;

  private:
    [[nodiscard]] Result<Done> DeleteFiles() const;
    Result<Done> Logged(const char* attempt, Result<Done> outcome) const;

    std::string m_path;
    DiagnosticLog& m_log;
};

} // namespace velmo
