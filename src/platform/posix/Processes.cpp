#include "platform/Processes.h"

#include "platform/ErrorCode.h"
#include "platform/posix/DesktopPath.h"
#include "platform/posix/SystemError.h"

#include <fcntl.h>
#include <spawn.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <cerrno>
#include <sstream>
#include <string>
#include <thread>
#include <vector>

extern char** environ;

namespace velmo::platform
{

struct StartedProgram::State
{
    std::atomic<bool> running{true};
    int exitCode = -1; ///< Valid once it runs no more.
};

namespace
{

/// Started programs are nobody's children to wait for, but a process that ended wants to be collected.
std::shared_ptr<StartedProgram::State> CollectWhenEnded(pid_t process)
{
    auto state = std::make_shared<StartedProgram::State>();
    std::thread([process, state] {
        int status = 0;
        if (waitpid(process, &status, 0) == process && WIFEXITED(status))
        {
            state->exitCode = WEXITSTATUS(status);
        }
        state->running = false;
    }).detach();
    return state;
}

void AllowExecution(const std::filesystem::path& file)
{
    struct stat status
    {};
    if (access(file.c_str(), X_OK) != 0 && stat(file.c_str(), &status) == 0)
    {
        chmod(file.c_str(), status.st_mode | S_IXUSR);
    }
}

} // namespace

bool StartedProgram::IsRunning() const
{
    return m_state->running;
}

std::optional<int> StartedProgram::ExitCode() const
{
    return IsRunning() ? std::nullopt : std::optional(m_state->exitCode);
}

Result<StartedProgram> StartProgram(std::string_view path, std::string_view arguments,
                                    WindowState /*state*/)
{
    const std::filesystem::path native = NativePath(path);
    std::vector<std::string> words{native.string()};
    std::istringstream rest{std::string(arguments)};
    for (std::string word; rest >> word;)
    {
        words.push_back(word);
    }
    std::vector<char*> argv;
    for (std::string& word : words)
    {
        argv.push_back(word.data());
    }
    argv.push_back(nullptr);

    AllowExecution(native);
    pid_t process = 0;
    const int failure =
        posix_spawn(&process, native.c_str(), nullptr, nullptr, argv.data(), environ);
    if (failure != 0)
    {
        return SystemError(failure, native);
    }
    return StartedProgram(CollectWhenEnded(process));
}

Result<Done> OpenThroughShell(const std::string& address)
{
    std::string program = "xdg-open";
    if (address.empty() || address.starts_with('-'))
    {
        return Error{error_code::kInvalidParameter,
                     "This would be an option of " + program + ": " + address};
    }
    std::string argument = address;
    const std::array<char*, 3> argv{program.data(), argument.data(), nullptr};
    pid_t process = 0;
    const int failure =
        posix_spawnp(&process, program.c_str(), nullptr, nullptr, argv.data(), environ);
    if (failure != 0)
    {
        return SystemError(failure, program);
    }
    CollectWhenEnded(process);
    return Done{};
}

bool ActivateWindow(std::string_view /*title*/)
{
    return false;
}

Result<Done> OpenDocument(std::string_view path)
{
    return OpenThroughShell(NativePath(path).string());
}

} // namespace velmo::platform
