#include "app/BuildInformation.h"
#include "app/CCheckOtherInstance.h"
#include "app/UiRequest.h"
#include "catalogue/CommonFolder.h"
#include "controls/MousePointer.h"
#include "controls/UserPrompts.h"
#include "manager/RunGuarded.h"
#include "manager/UpdateManager.h"
#include "platform/CommandLine.h"
#include "platform/HeadlessLoop.h"
#include "platform/ProgramLibrary.h"
#include "platform/RunningInstance.h"
#include "settings/CINIFileHandler.h"
#include "settings/DiagnosticLog.h"
#include "updates/StartupCheck.h"

#include <chrono>
#include <optional>
#include <string>
#include <thread>

namespace velmo
{
namespace
{

constexpr int kNoWindows = 1;

constexpr std::chrono::seconds kLongestWaitForTheFirst{5};
constexpr std::chrono::milliseconds kBetweenAsking{50};

/// A start-up run that is still silent has nothing to say to anybody.
class NoPrompts final : public UserPrompts
{
  public:
    void Notify(PromptIcon /*icon*/, const std::string& /*text*/,
                const std::string& /*title*/) override
    {}
};

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

int ShowMainWindow(const std::string& commandLine, DiagnosticLog& log)
{
    UiRequest request{};
    request.commandLine = commandLine.c_str();
    request.subject = UiSubject::MainWindow;
    return ShowWindows(request, false, log);
}

int RunInStartupMode(const std::string& commandLine)
{
    platform::HeadlessLoop loop;
    NoPrompts prompts;
    MousePointer pointer;
    UpdateManager manager(loop, prompts, pointer);
    bool isWanted = false; // By somebody who started the program by hand meanwhile.
    StartupFindings findings;
    {
        const platform::InstanceListener listener(kSilentInstanceName, loop, [&] {
            isWanted = true;
            manager.Lists().BreakOff();
            return true;
        });
        findings = manager.CheckForCaller(StartupRequest(commandLine));
    }
    // Who asked in the last moment has been told that the window comes.
    loop.Yield();
    if (isWanted || findings.Outcome() == StartupOutcome::Nothing)
    {
        manager.DeleteLists();
        return isWanted ? ShowMainWindow("", manager.Log()) : 0;
    }
    UiRequest request{};
    request.commandLine = commandLine.c_str();
    request.Carry(findings, manager.Lists());
    request.statusLines = manager.StatusBox().Text().c_str();
    const int exitCode = ShowWindows(request, true, manager.Log());
    if (exitCode != 0)
    {
        // Nobody else is there to delete them.
        manager.DeleteLists();
    }
    return exitCode;
}

/// What the first instance does for its own caller, this one leaves undone otherwise.
void RememberCaller(const StartupRequest& request)
{
    const SharedValues stores = SharedValues::Read();
    DiagnosticLog log(stores.LogFilePath());
    CINIFileHandler settings(log);
    settings.AppProfileFileName(stores.SettingsFilePath());
    MarkCaller(settings, settings.Snapshot(), request);
}

/// Whether this is the only instance from now on. Else the other one has come forward if a person
/// asks for that: a window or a question that is just coming up gets the time for it, and a silent run
/// that ends meanwhile leaves its place to this one.
bool IsFirst(std::optional<CCheckOtherInstance>& instances, const StartupRequest& request)
{
    const auto end = std::chrono::steady_clock::now() + kLongestWaitForTheFirst;
    while (instances->OtherInstanceRuns(kMainWindowCaption, kMainWindowClass))
    {
        if (instances->CameForward() || request.startupMode ||
            platform::AskToComeForward(kSilentInstanceName) ||
            std::chrono::steady_clock::now() >= end)
        {
            return false;
        }
        std::this_thread::sleep_for(kBetweenAsking);
        instances.reset();
        instances.emplace();
    }
    return true;
}

int RunStartUp(int argc, char** argv)
{
    const std::string commandLine = platform::CommandLineText(argc, argv);
    const StartupRequest request(commandLine);
    std::optional<CCheckOtherInstance> instances(std::in_place);
    if (!IsFirst(instances, request))
    {
        RememberCaller(request);
        return 0;
    }
    if (request.startupMode)
    {
        return RunInStartupMode(commandLine);
    }
    DiagnosticLog log(LogFilePath());
    return ShowMainWindow(commandLine, log);
}

} // namespace
} // namespace velmo

int main(int argc, char** argv)
{
    return velmo::RunGuarded([&] { return velmo::RunStartUp(argc, argv); }, velmo::kNoWindows);
}
