#include "tests/support/TestSystem.h"

#include "platform/posix/DesktopPath.h"

#include <signal.h>
#include <stdlib.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <stdexcept>

namespace velmo::test
{
namespace
{

namespace fs = std::filesystem;

/// But for the toolkit's own helpers: they are this process's, and go on.
void EndPrograms(const std::string& root)
{
    std::error_code ignored; // Processes come and go meanwhile.
    for (const fs::directory_entry& process : fs::directory_iterator("/proc", ignored))
    {
        std::ifstream file(process.path() / "environ", std::ios::binary);
        const std::string environment{std::istreambuf_iterator<char>(file), {}};
        const fs::path program = fs::read_symlink(process.path() / "exe", ignored);
        const std::string name = program.filename().string();
        if (environment.find("VELMO_HOME=" + root + '\0') != std::string::npos &&
            (program.string().starts_with(root) || name.starts_with("Velmo") ||
             name.starts_with("velmo")))
        {
            kill(std::stoi(process.path().filename()), SIGKILL);
        }
    }
}

} // namespace

// Variables keep their values: what lies there is gone then, which is better than a person's own.
std::shared_ptr<void> NewDesktop(const std::string& folder)
{
    std::string root = (fs::temp_directory_path() / "velmo-desktop-XXXXXX").string();
    if (mkdtemp(root.data()) == nullptr)
    {
        throw std::runtime_error("No temporary folder: " + root);
    }
    setenv("VELMO_HOME", root.c_str(), 1);
    fs::create_directories(fs::path(root) / "drive_c/windows");
    fs::create_directories(platform::NativePath(folder));
    return {nullptr, [root](void*) {
                EndPrograms(root);
                std::error_code ignored;
                fs::remove_all(root, ignored);
            }};
}

fs::path NativePath(std::string_view path)
{
    return platform::NativePath(path);
}

std::string StartableProgram()
{
    return "#!/bin/sh\n";
}

std::string BuildMachinePath(std::string path)
{
    return path;
}

bool RunsUnderWine()
{
    return false;
}

std::shared_ptr<void> RegisterBrowser(const std::string& record)
{
    // The desktop asks xdg-open, whichever comes first on the search path.
    const fs::path file = platform::NativePath(record);
    const fs::path folder = file.parent_path() / "browser";
    fs::create_directories(folder);
    fs::create_symlink(VELMO_RECORDING_BROWSER, folder / "xdg-open");
    setenv("PATH", (folder.string() + ":" + getenv("PATH")).c_str(), 1);
    setenv(kRecordVariable, file.c_str(), 1);
    return nullptr;
}

} // namespace velmo::test
