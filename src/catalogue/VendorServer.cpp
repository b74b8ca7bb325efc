#include "catalogue/VendorServer.h"

#include "catalogue/BuildConfiguration.h"
#include "platform/MachinePolicy.h"
#include "settings/DiagnosticLog.h"

namespace velmo
{

std::string VendorServer::Address(std::string_view path) const
{
    return path.empty() ? std::string() : webServer + std::string(path);
}

VendorServer ConfiguredServer(DiagnosticLog& log)
{
    VendorServer server{build::kWebServer, build::kSecondDemoServer};
    std::string policy = platform::ReadMachinePolicy("WebServer").value_or("");
    while (policy.ends_with('/'))
    {
        policy.pop_back();
    }
    if (policy.starts_with("http://") || policy.starts_with("https://"))
    {
        server.webServer = policy;
    }
    else if (!policy.empty())
    {
        log.Write("The machine policy WebServer is ignored, it is no http or https address: " +
                  policy);
    }
    return server;
}

} // namespace velmo
