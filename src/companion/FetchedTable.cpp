#include "companion/FetchedTable.h"

#include "companion/ConsolePrompts.h"
#include "controls/MousePointer.h"
#include "manager/UpdateManager.h"
#include "platform/HeadlessLoop.h"

#include <ostream>

namespace velmo::companion
{

ExitCode PrintFetched(const FetchedTable& table, Output output)
{
    platform::HeadlessLoop loop;
    ConsolePrompts prompts(output.errors);
    MousePointer pointer;
    UpdateManager manager(loop, prompts, pointer);
    manager.FetchLists();
    manager.DeleteLists();
    output.out << table.text(manager);
    if (!manager.Lists().Succeeded())
    {
        output.errors << "The vendor's lists could not be fetched from "
                      << manager.Lists().Server().webServer << ": "
                      << manager.Lists().LastErrorText() << "\n";
        return ExitCode::ServerUnreachable;
    }
    return table.needsUpdate(manager.Counts()) ? ExitCode::UpdatesAvailable : ExitCode::Fine;
}

} // namespace velmo::companion
