#include "ui/WxLog.h"

#include "ui/WxText.h"

#include <utility>

namespace velmo
{

WxLog::WxLog(std::string path) : m_log(std::move(path)) {}

void WxLog::DoLogRecord(wxLogLevel level, const wxString& message,
                        const wxLogRecordInfo& /*information*/)
{
    if (level <= wxLOG_Warning)
    {
        m_log.Write("The toolkit: " + FromWx(message));
    }
}

} // namespace velmo
