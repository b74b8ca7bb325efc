#include "tests/support/TemporaryDesktop.h"

#include "platform/DesktopFolders.h"
#include "platform/MFile.h"
#include "platform/MachinePolicy.h"
#include "platform/PrivateProfile.h"
#include "platform/UserSettings.h"
#include "tests/support/TestSystem.h"

#include <random>
#include <stdexcept>

namespace velmo::test
{
namespace
{

constexpr const char* kVendor = "Velmo Software";

std::string NewFolder()
{
    std::random_device random;
    return "C:\\velmo-test-" + std::to_string(random()) + "-" + std::to_string(random()) + "\\";
}

template <typename T>
T Require(Result<T> result, std::string_view what)
{
    if (!result)
    {
        throw std::runtime_error(std::string(what) + ": " + result.Failure().description);
    }
    return std::move(result).Value();
}

} // namespace

std::string TestDataPath(std::string_view relative)
{
    return BuildMachinePath(VELMO_TEST_DATA "/" + std::string(relative));
}

TemporaryDesktop::TemporaryDesktop() : m_folder(NewFolder()), m_opened(NewDesktop(m_folder))
{
    // A run that was killed leaves its lists, and a program that starts takes them over.
    for (const char* list : {"version.ini", "manufver.ini"})
    {
        Require(platform::MFile::DeleteIfExists(platform::ProgramFolder() + list), list);
    }
}

std::string TemporaryDesktop::Write(std::string_view name, std::string_view bytes) const
{
    std::string path = PathOf(name);
    Require(platform::MFile::CreateFolders(path.substr(0, path.rfind('\\') + 1)), path);
    Require(platform::MFile::WriteAll(path, bytes), path);
    return path;
}

std::string TemporaryDesktop::WriteProgram(std::string_view name) const
{
    using namespace std::filesystem;
    std::string path = Write(name, StartableProgram());
    permissions(NativePath(path), perms::owner_exec, perm_options::add);
    return path;
}

std::string TemporaryDesktop::Read(std::string_view name) const
{
    return Require(platform::MFile::ReadAll(PathOf(name)), name);
}

std::filesystem::path TemporaryDesktop::Native(std::string_view name) const
{
    return NativePath(PathOf(name));
}

void TemporaryDesktop::SetWinIniFolder(std::string_view name, std::string_view folder) const
{
    const std::string file = platform::WindowsDirectory() + "Win.ini";
    Require(platform::WritePrivateProfileText(kVendor, name, folder, file), file);
}

void TemporaryDesktop::SetUserFolder(std::string_view name, std::string_view folder) const
{
    Require(platform::WriteUserSetting(kVendor, "Program Folders", name, folder), name);
}

void TemporaryDesktop::SetPolicy(std::string_view name, std::string_view value) const
{
    Require(platform::WriteMachinePolicy(name, value), name);
}

std::string TemporaryDesktop::PathOf(std::string_view name) const
{
    const bool isPath = name.find(':') != std::string_view::npos || name.starts_with('/');
    return (isPath ? "" : m_folder) + std::string(name);
}

} // namespace velmo::test
