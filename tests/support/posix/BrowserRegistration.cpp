#include "tests/support/BrowserRegistration.h"

#include "platform/posix/DesktopPath.h"

#include <stdlib.h>

#include <filesystem>

namespace velmo::test
{

/// The desktop asks xdg-open, whichever comes first on the search path.
struct FakeBrowser::Registration::State
{
    std::string outerPath;
};

FakeBrowser::Registration::Registration(const std::string& record, const std::string& browser)
    : m_state(std::make_unique<State>())
{
    const char* outer = getenv("PATH");
    m_state->outerPath = outer == nullptr ? "" : outer;
    const std::filesystem::path file = platform::NativePath(record);
    const std::filesystem::path folder = file.parent_path() / "browser";
    std::filesystem::create_directories(folder);
    std::filesystem::create_symlink(browser, folder / "xdg-open");
    setenv("PATH", (folder.string() + ":" + m_state->outerPath).c_str(), 1);
    setenv(kRecordVariable, file.c_str(), 1);
}

FakeBrowser::Registration::~Registration()
{
    setenv("PATH", m_state->outerPath.c_str(), 1);
    unsetenv(kRecordVariable);
}

} // namespace velmo::test
