#include "tests/support/DesktopStores.h"

#include "platform/posix/DesktopPath.h"

#include <stdlib.h>
#include <unistd.h>

#include <filesystem>
#include <optional>
#include <stdexcept>

namespace velmo::test
{
namespace
{

constexpr const char* kHome = "VELMO_HOME";

} // namespace

struct TemporaryDesktop::Stores::State
{
    std::filesystem::path root;
    std::optional<std::string> outerHome;
};

TemporaryDesktop::Stores::Stores(const std::string& folder) : m_state(std::make_unique<State>())
{
    std::string root = (std::filesystem::temp_directory_path() / "velmo-desktop-XXXXXX").string();
    if (mkdtemp(root.data()) == nullptr)
    {
        throw std::runtime_error("No temporary folder: " + root);
    }
    const char* outer = getenv(kHome);
    m_state->root = root;
    m_state->outerHome = outer == nullptr ? std::nullopt : std::optional<std::string>(outer);
    setenv(kHome, root.c_str(), 1);
    std::filesystem::create_directories(m_state->root / "drive_c/windows");
    std::filesystem::create_directories(platform::NativePath(folder));
}

TemporaryDesktop::Stores::~Stores()
{
    if (m_state->outerHome)
    {
        setenv(kHome, m_state->outerHome->c_str(), 1);
    }
    else
    {
        unsetenv(kHome);
    }
    std::error_code ignored;
    std::filesystem::remove_all(m_state->root, ignored);
}

unsigned long TemporaryDesktop::Stores::ProcessNumber()
{
    return static_cast<unsigned long>(getpid());
}

} // namespace velmo::test
