#include "manager/RunGuarded.h"

#include "catalogue/CommonFolder.h"
#include "settings/DiagnosticLog.h"

#include <exception>
#include <string>

namespace velmo
{

int RunGuarded(const std::function<int()>& work, int failed)
{
    try
    {
        return work();
    }
    catch (const std::exception& fault)
    {
        // What the work held is free again by now.
        DiagnosticLog(LogFilePath()).Write(std::string("The program ends: ") + fault.what());
        return failed;
    }
}

} // namespace velmo
