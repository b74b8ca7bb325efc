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

/// The toolkit's own helpers run there too: they are this process's, and go on.
bool IsOfTheVendor(const fs::path& program, const std::string& root)
{
    return program.string().starts_with(root) || program.filename().string().starts_with("Velmo") ||
           program.filename().string().starts_with("velmo");
}

void EndPrograms(const std::string& root)
{
    std::error_code ignored; // Processes come and go meanwhile.
    for (const fs::directory_entry& process : fs::directory_iterator("/proc", ignored))
    {
        std::ifstream file(process.path() / "environ", std::ios::binary);
        const std::string environment{std::istreambuf_iterator<char>(file), {}};
        if (environment.find("VELMO_HOME=" + root + '\0') != std::string::npos &&
            IsOfTheVendor(fs::read_symlink(process.path() / "exe", ignored), root))
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

unsigned long ProcessNumber()
{
    return static_cast<unsigned long>(getpid());
}

fs::path NativePath(std::string_view path)
{
    return platform::NativePath(path);
}

bool MakeFolderLink(std::string_view link, std::string_view target)
{
    std::error_code error;
    fs::create_directory_symlink(platform::NativePath(target), platform::NativePath(link), error);
    return !error;
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
