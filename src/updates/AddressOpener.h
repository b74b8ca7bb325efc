#pragma once

#include "platform/Result.h"

#include <functional>
#include <string>
#include <string_view>

namespace velmo
{

class DiagnosticLog;

/**
    Opens web addresses in the user's browser. Addresses come from downloaded lists: only http, https
    and ftp addresses are opened (platform/WebAddress.h); anything else is ignored with a line in the
    log, and so is a failure to open. User-interface thread.
 */
class AddressOpener
{
  public:
    using Shell = std::function<Result<Done>(const std::string& address)>;

    /// @a log must outlive the opener. @a shell gets the addresses that may be opened.
    AddressOpener(DiagnosticLog& log, Shell shell);

    /// An empty address does nothing.
    void Open(std::string_view address);

  private:
    DiagnosticLog& m_log;
    Shell m_shell;
};

} // namespace velmo
