#include "catalogue/VendorServer.h"

#include "catalogue/BuildConfiguration.h"
#include "platform/MachinePolicy.h"
#include "settings/DiagnosticLog.h"
#include "text/TextCase.h"
#include "text/WebAddress.h"

namespace velmo
{

std::string VendorServer::Address(std::string_view path) const
{
    return path.empty() ? std::string() : webServer + std::string(path);
}

VendorServer ConfiguredServer(DiagnosticLog& log)
{
    VendorServer server{build::kWebServer, build::kSecondDemoServer};
    const std::string text = platform::ReadMachinePolicy("WebServer").value_or("");
    std::string_view policy = Trimmed(text);
    while (policy.ends_with('/'))
    {
        policy.remove_suffix(1);
    }
    const auto address = ParseWebAddress(policy);
    if (address && address->scheme != WebScheme::Ftp)
    {
        server.webServer = address->text;
    }
    else if (!policy.empty())
    {
        log.Write("The machine policy WebServer is ignored, it is no http or https address: " +
                  text);
    }
    return server;
}

} // namespace velmo
