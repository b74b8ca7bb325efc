#include "tests/support/TestSystem.h"

#include "platform/posix/DesktopPath.h"

#include <signal.h>
#include <stdlib.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <optional>
#include <stdexcept>

namespace velmo::test
{
namespace
{

namespace fs = std::filesystem;

/// An environment variable that has another value for a while.
class Variable
{
  public:
    explicit Variable(const char* name) : m_name(name)
    {
        if (const char* outer = getenv(name))
        {
            m_outer = outer;
        }
    }
    ~Variable() { m_outer ? setenv(m_name, m_outer->c_str(), 1) : unsetenv(m_name); }
    Variable(const Variable&) = delete;
    Variable& operator=(const Variable&) = delete;

    [[nodiscard]] std::string Outer() const { return m_outer.value_or(""); }
    void Set(const std::string& value) const { setenv(m_name, value.c_str(), 1); }

  private:
    const char* m_name;
    std::optional<std::string> m_outer;
};

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

struct Desktop
{
    ~Desktop()
    {
        EndPrograms(root);
        std::error_code ignored;
        fs::remove_all(root, ignored);
    }
    Variable home{"VELMO_HOME"};
    std::string root = (fs::temp_directory_path() / "velmo-desktop-XXXXXX").string();
};

/// The desktop asks xdg-open, whichever comes first on the search path.
struct Browser
{
    Variable path{"PATH"};
    Variable record{kRecordVariable};
};

} // namespace

std::shared_ptr<void> NewDesktop(const std::string& folder)
{
    auto desktop = std::make_shared<Desktop>();
    if (mkdtemp(desktop->root.data()) == nullptr)
    {
        throw std::runtime_error("No temporary folder: " + desktop->root);
    }
    desktop->home.Set(desktop->root);
    fs::create_directories(fs::path(desktop->root) / "drive_c/windows");
    fs::create_directories(platform::NativePath(folder));
    return desktop;
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

void MakeStartable(std::string_view file)
{
    fs::permissions(platform::NativePath(file), fs::perms::owner_exec, fs::perm_options::add);
}

std::string BuildMachinePath(std::string path)
{
    return path;
}

std::string TestDataPath(std::string_view relative)
{
    return BuildMachinePath(VELMO_TEST_DATA "/" + std::string(relative));
}

bool RunsUnderWine()
{
    return false;
}

std::shared_ptr<void> RegisterBrowser(const std::string& record)
{
    auto registered = std::make_shared<Browser>();
    const fs::path file = platform::NativePath(record);
    const fs::path folder = file.parent_path() / "browser";
    fs::create_directories(folder);
    fs::create_symlink(VELMO_RECORDING_BROWSER, folder / "xdg-open");
    registered->path.Set(folder.string() + ":" + registered->path.Outer());
    registered->record.Set(file.string());
    return registered;
}

} // namespace velmo::test
