#include "updates/AddressOpener.h"

#include "settings/DiagnosticLog.h"
#include "text/WebAddress.h"

#include <utility>

namespace velmo
{

AddressOpener::AddressOpener(DiagnosticLog& log, Shell shell)
    : m_log(log), m_shell(std::move(shell))
{}

void AddressOpener::Open(std::string_view address)
{
    if (address.empty())
    {
        return;
    }
    const auto parsed = ParseWebAddress(address);
    if (!parsed)
    {
        m_log.Write(std::string("Not opened, as it ") +
                    (WebSchemeOf(address)
                         ? "has control characters, or no proper host or port: "
                         : "begins with neither http:// nor https:// nor ftp://: ") +
                    std::string(address));
        return;
    }
    if (const auto opened = m_shell(parsed->text); !opened)
    {
        m_log.Failure("Opening " + parsed->text, opened.Failure());
    }
}

} // namespace velmo
