#include "tests/support/DesktopStores.h"

#include "platform/DesktopFolders.h"
#include "platform/PrivateProfile.h"
#include "platform/windows/WideText.h"

#include <windows.h>

#include <filesystem>

namespace velmo::test
{
namespace
{

constexpr const char* kVendor = "Velmo Software";
constexpr const wchar_t* kUserKey = L"Software\\VB and VBA Program Settings\\Velmo Software";
constexpr const wchar_t* kPolicyKey = L"Software\\Policies\\Velmo Software";

void EmptySharedStores()
{
    platform::WritePrivateProfileText(kVendor, std::nullopt, std::nullopt,
                                      platform::WindowsDirectory() + "Win.ini");
    RegDeleteTreeW(HKEY_CURRENT_USER, kUserKey);
    RegDeleteTreeW(HKEY_LOCAL_MACHINE, kPolicyKey);
}

} // namespace

/// Held while a desktop lives, since other test programs share this machine's stores.
struct TemporaryDesktop::Stores::State
{
    State() : turn(CreateMutexW(nullptr, FALSE, L"velmo-temporary-desktop"))
    {
        WaitForSingleObject(turn, INFINITE);
    }
    State(const State&) = delete;
    State& operator=(const State&) = delete;
    ~State()
    {
        ReleaseMutex(turn);
        CloseHandle(turn);
    }

    HANDLE turn;
    std::filesystem::path folder;
};

TemporaryDesktop::Stores::Stores(const std::string& folder) : m_state(std::make_unique<State>())
{
    m_state->folder = platform::Wide(folder);
    std::filesystem::create_directories(m_state->folder);
    EmptySharedStores();
}

TemporaryDesktop::Stores::~Stores()
{
    EmptySharedStores();
    std::error_code ignored;
    std::filesystem::remove_all(m_state->folder, ignored);
}

unsigned long TemporaryDesktop::Stores::ProcessNumber()
{
    return GetCurrentProcessId();
}

} // namespace velmo::test
