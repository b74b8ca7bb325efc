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

constexpr std::array kKeys{L"Software\\Classes\\http", L"Software\\Classes\\https"};
constexpr wchar_t kRecordName[] = L"VELMO_BROWSER_RECORD";

void Register(const wchar_t* key, const std::wstring& command)
{
    const std::wstring path = std::wstring(key) + L"\\shell\\open\\command";
    const auto size = static_cast<DWORD>((command.size() + 1) * sizeof(wchar_t));
    if (RegSetKeyValueW(HKEY_CURRENT_USER, path.c_str(), nullptr, REG_SZ, command.c_str(), size) !=
        ERROR_SUCCESS)
    {
        throw std::runtime_error("cannot register a browser");
    }
}

} // namespace

/// The user's own registration goes before the machine's.
struct FakeBrowser::Registration::State
{};

FakeBrowser::Registration::Registration(const std::string& record, const std::string& browser)
{
    const std::wstring program = platform::Wide(platform::MFile::FullPath(browser));
    for (const wchar_t* key : kKeys)
    {
        Register(key, L"\"" + program + L"\" \"%1\"");
    }
    SetEnvironmentVariableW(kRecordName, platform::Wide(record).c_str());
}

FakeBrowser::Registration::~Registration()
{
    for (const wchar_t* key : kKeys)
    {
        RegDeleteTreeW(HKEY_CURRENT_USER, key);
    }
    SetEnvironmentVariableW(kRecordName, nullptr);
}

} // namespace velmo::test
