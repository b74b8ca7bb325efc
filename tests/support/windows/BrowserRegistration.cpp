#include "tests/support/BrowserRegistration.h"

#include "platform/MFile.h"
#include "platform/windows/WideText.h"

#include <windows.h>

#include <array>
#include <stdexcept>

namespace velmo::test
{
namespace
{

/// The machine's: Wine's shell never looks at the user's own classes when the machine has the same one.
constexpr std::array kCommands{L"Software\\Classes\\http\\shell\\open\\command",
                               L"Software\\Classes\\https\\shell\\open\\command"};
constexpr wchar_t kRecordName[] = L"VELMO_BROWSER_RECORD";

std::wstring CommandOf(const wchar_t* key)
{
    std::array<wchar_t, 1024> command{};
    DWORD size = sizeof command;
    RegGetValueW(HKEY_LOCAL_MACHINE, key, nullptr, RRF_RT_REG_SZ, nullptr, command.data(), &size);
    return command.data();
}

void SetCommand(const wchar_t* key, const std::wstring& command)
{
    const auto size = static_cast<DWORD>((command.size() + 1) * sizeof(wchar_t));
    if (RegSetKeyValueW(HKEY_LOCAL_MACHINE, key, nullptr, REG_SZ, command.c_str(), size) !=
        ERROR_SUCCESS)
    {
        throw std::runtime_error("cannot register a browser");
    }
}

} // namespace

struct FakeBrowser::Registration::State
{
    std::array<std::wstring, kCommands.size()> before;
};

FakeBrowser::Registration::Registration(const std::string& record, const std::string& browser)
    : m_state(std::make_unique<State>())
{
    const std::wstring program = platform::Wide(platform::MFile::FullPath(browser));
    for (std::size_t i = 0; i < kCommands.size(); ++i)
    {
        m_state->before[i] = CommandOf(kCommands[i]);
        SetCommand(kCommands[i], L"\"" + program + L"\" \"%1\"");
    }
    SetEnvironmentVariableW(kRecordName, platform::Wide(record).c_str());
}

FakeBrowser::Registration::~Registration()
{
    for (std::size_t i = 0; i < kCommands.size(); ++i)
    {
        SetCommand(kCommands[i], m_state->before[i]);
    }
    SetEnvironmentVariableW(kRecordName, nullptr);
}

} // namespace velmo::test
