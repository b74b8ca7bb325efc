#include "updates/StartupRequest.h"

#include "catalogue/ProgramCatalogue.h"
#include "settings/TextCase.h"

namespace velmo
{

StartupRequest::StartupRequest(std::string_view commandLine)
    : text(Trimmed(commandLine)),
      startupMode(UpperCase(commandLine).find("STARTUP") != std::string::npos),
      databasesTab(commandLine.find(NameOfIndex(kEquipmentNameIndex)) != std::string_view::npos),
      caller(CallerOfCommandLine(commandLine)), callerIndex(IndexOfName(caller))
{}

bool StartupRequest::AsksForStatus() const
{
    return !text.empty() && !startupMode && !databasesTab;
}

} // namespace velmo
