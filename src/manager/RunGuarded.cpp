#include "manager/RunGuarded.h"

#include "catalogue/CommonFolder.h"
#include "settings/DiagnosticLog.h"

#include <exception>
#include <iostream>
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
        const std::string text = std::string("The program ends: ") + fault.what();
        DiagnosticLog(LogFilePath()).Write(text);
        std::cerr << text << "\n";
        return failed;
    }
}

} // namespace velmo
