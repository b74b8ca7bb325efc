#include "catalogue/CommonFolder.h"
#include "catalogue/ProgramTable.h"
#include "platform/HeadlessLoop.h"
#include "platform/MFile.h"
#include "platform/Processes.h"

#include <CLI/CLI.hpp>

#include <algorithm>
#include <iostream>
#include <string>
#include <vector>

namespace
{

/// Words that the shell took apart.
std::string Joined(const std::vector<std::string>& words)
{
    std::string text;
    for (const std::string& word : words)
    {
        text += (text.empty() ? "" : " ") + word;
    }
    return text;
}

std::string OneOfTheVendors(const std::vector<std::string>& words)
{
    const std::string name = Joined(words);
    const bool known = std::ranges::any_of(
        velmo::kPrograms, [&name](const auto& program) { return program.displayName == name; });
    return known ? name : throw CLI::ValidationError("The vendor has no program \"" + name + "\"");
}

int ExitCodeOf(const velmo::platform::StartedProgram& program)
{
    velmo::platform::HeadlessLoop loop;
    loop.RunUntil([&program] { return !program.IsRunning(); });
    return program.ExitCode().value_or(1);
}

} // namespace

/// Does what each of the vendor's programs does when a person starts it: has the update manager look
/// for updates, under the program's own name. Goes on without it when it cannot be started.
int main(int argc, char** argv)
{
    namespace platform = velmo::platform;
    CLI::App options("Starts as one of the vendor's programs does: with the update manager.");
    std::vector<std::string> words;
    std::string updateManager;
    bool wait = false;
    options.add_option("name", words, "The program's name, such as Loadcalc 8")->required();
    options.add_option("--update-manager", updateManager,
                       "The update manager; otherwise VelmoUpd.exe of the common folder");
    options.add_flag("--wait", wait, "End when the update manager does, with its exit code");
    std::string name;
    options.callback([&] { name = OneOfTheVendors(words); });
    CLI11_PARSE(options, argc, argv);

    const std::string path = updateManager.empty()
                                 ? velmo::CommonFolder() + "VelmoUpd.exe"
                                 : platform::MFile::FromCommandLine(updateManager);
    const auto started =
        platform::StartProgram(path, "STARTUP " + name, platform::WindowState::Normal);
    if (!started)
    {
        std::cerr << "The update manager did not start: " << started.Failure().description << "\n";
        return 1;
    }
    return wait ? ExitCodeOf(started.Value()) : 0;
}
