#pragma once

#include "settings/DiagnosticLog.h"

#include <wx/log.h>

#include <string>

namespace velmo
{

/// Takes what the toolkit itself complains about into the diagnostic log. Its own way is a message box
/// that tells a person nothing to act on. User-interface thread.
class WxLog final : public wxLog
{
  public:
    /// @a path is the log file's path.
    explicit WxLog(std::string path);

  private:
    void DoLogRecord(wxLogLevel level, const wxString& message,
                     const wxLogRecordInfo& information) override;

    DiagnosticLog m_log;
};

} // namespace velmo
