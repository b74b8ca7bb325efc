#include "app/BuildInformation.h"
#include "app/CCheckOtherInstance.h"
#include "app/UiRequest.h"
#include "catalogue/CommonFolder.h"
#include "controls/MousePointer.h"
#include "controls/UserPrompts.h"
#include "manager/FetchedFiles.h"
#include "manager/UpdateManager.h"
#include "platform/CommandLine.h"
#include "platform/DesktopFolders.h"
#include "platform/HeadlessLoop.h"
#include "platform/ProgramLibrary.h"
#include "settings/DiagnosticLog.h"
#include "updates/StartupCheck.h"

#include <string>

namespace velmo
{
namespace
{

constexpr int kNoWindows = 1;

/// A start-up run that is still silent has nothing to say to anybody.
class NoPrompts final : public UserPrompts
{
  public:
    void Notify(PromptIcon /*icon*/, const std::string& /*text*/,
                const std::string& /*title*/) override
    {}
};

/// What a start-up run found out, with what the windows need to know of how.
struct SilentResult
{
    StartupFindings findings;
    std::string statusLines;
};

SilentResult CheckSilently(const StartupRequest& request)
{
    platform::HeadlessLoop loop;
    NoPrompts prompts;
    MousePointer pointer;
    UpdateManager manager(loop, prompts, pointer);
    manager.Startup().MarkCaller(request);
    SilentResult result{manager.CheckForCaller(request), manager.StatusBox().Text()};
    if (result.findings.Outcome() == StartupOutcome::Nothing)
    {
        manager.DeleteLists();
    }
    return result;
}

/// Loads the windows' library and lets it show what @a request asks for.
int ShowWindows(UiRequest request, bool silent, DiagnosticLog& log)
{
    int exitCode = kOtherBuild;
    const auto library = platform::LoadFromProgramFolder(kUiLibrary, kUiFunction);
    if (library)
    {
        request.build = kOwnInformation.versionText;
        request.module = library.Value().module;
        exitCode = reinterpret_cast<UiFunction>(library.Value().address)(&request);
    }
    else
    {
        log.Failure(std::string("Loading ") + kUiLibrary, library.Failure());
    }
    if (exitCode == 0)
    {
        return 0;
    }
    std::string text = "The program's windows cannot be shown.";
    if (exitCode == kOtherBuild)
    {
        text = std::string("The library ") + kUiLibrary +
               " beside this program is missing, damaged or of another version. Please install the "
               "program again.";
    }
    log.Write(text);
    if (!silent)
    {
        platform::TellFailure(kOwnInformation.title, text);
    }
    return kNoWindows;
}

int RunInStartupMode(const std::string& commandLine)
{
    const SilentResult result = CheckSilently(StartupRequest(commandLine));
    if (result.findings.Outcome() == StartupOutcome::Nothing)
    {
        return 0;
    }
    UiRequest request{};
    request.commandLine = commandLine.c_str();
    request.Carry(result.findings);
    request.statusLines = result.statusLines.c_str();
    DiagnosticLog log(LogFilePath());
    const int exitCode = ShowWindows(request, true, log);
    if (exitCode != 0)
    {
        // Nobody else is there to delete them.
        FetchedFiles(platform::ProgramFolder()).Delete(log);
    }
    return exitCode;
}

int RunStartUp(int argc, char** argv)
{
    CCheckOtherInstance instances;
    if (instances.OtherInstanceRuns(kMainWindowCaption, kMainWindowClass))
    {
        return 0;
    }
    const std::string commandLine = platform::CommandLineText(argc, argv);
    if (StartupRequest(commandLine).startupMode)
    {
        return RunInStartupMode(commandLine);
    }
    UiRequest request{};
    request.commandLine = commandLine.c_str();
    request.subject = UiSubject::MainWindow;
    DiagnosticLog log(LogFilePath());
    return ShowWindows(request, false, log);
}

} // namespace
} // namespace velmo

int main(int argc, char** argv)
{
    return velmo::RunStartUp(argc, argv);
}
