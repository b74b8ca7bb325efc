#include "tests/support/TestSystem.h"

#include "platform/DesktopFolders.h"
#include "platform/MFile.h"
#include "platform/PrivateProfile.h"
#include "platform/windows/WideText.h"
#include "sample/PeImageWriter.h"

#include <windows.h>

#include <psapi.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <span>
#include <stdexcept>

namespace velmo::test
{
namespace
{

/// The machine's: Wine's shell never looks at the user's own classes when the machine has the same one.
constexpr std::array kBrowserKeys{L"Software\\Classes\\http\\shell\\open\\command",
                                  L"Software\\Classes\\https\\shell\\open\\command"};

/// But for tests' own programs: those run beside one another.
void EndPrograms(const std::wstring& folder)
{
    std::array<DWORD, 1024> all{};
    DWORD size = 0;
    EnumProcesses(all.data(), sizeof all, &size);
    for (const DWORD number : std::span(all).first(size / sizeof(DWORD)))
    {
        HANDLE process = OpenProcess(
            PROCESS_QUERY_LIMITED_INFORMATION | PROCESS_TERMINATE | SYNCHRONIZE, FALSE, number);
        std::array<wchar_t, MAX_PATH> path{};
        auto length = static_cast<DWORD>(path.size());
        QueryFullProcessImageNameW(process, 0, path.data(), &length);
        const std::wstring_view program(path.data());
        const std::wstring_view name = program.substr(program.rfind(L'\\') + 1);
        if ((program.starts_with(folder) || name.starts_with(L"Velmo") ||
             name.starts_with(L"velmo")) &&
            TerminateProcess(process, 1))
        {
            WaitForSingleObject(process, INFINITE); // Its files can go then.
        }
        CloseHandle(process);
    }
}

void EmptyDesktop(const std::filesystem::path& folder)
{
    EndPrograms(folder);
    (void)platform::WritePrivateProfileText("Velmo Software", std::nullopt, std::nullopt,
                                            platform::WindowsDirectory() + "Win.ini");
    RegDeleteTreeW(HKEY_CURRENT_USER, L"Software\\VB and VBA Program Settings\\Velmo Software");
    RegDeleteTreeW(HKEY_LOCAL_MACHINE, L"Software\\Policies\\Velmo Software");
    std::error_code ignored;
    std::filesystem::remove_all(folder, ignored);
}

std::wstring TextOfKey(const wchar_t* key)
{
    std::array<wchar_t, 1024> text{};
    DWORD size = sizeof text;
    RegGetValueW(HKEY_LOCAL_MACHINE, key, nullptr, RRF_RT_REG_SZ, nullptr, text.data(), &size);
    return text.data();
}

void SetTextOfKey(const wchar_t* key, const std::wstring& text)
{
    if (RegSetKeyValueW(HKEY_LOCAL_MACHINE, key, nullptr, REG_SZ, text.c_str(),
                        static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t))) != ERROR_SUCCESS)
    {
        throw std::runtime_error("cannot write to the machine's registry");
    }
}

} // namespace

std::shared_ptr<void> NewDesktop(const std::string& path)
{
    const std::filesystem::path folder = platform::Wide(path);
    EmptyDesktop(folder); // Of a test whose process was ended.
    std::filesystem::create_directories(folder);
    return {nullptr, [folder](void*) { EmptyDesktop(folder); }};
}

std::filesystem::path NativePath(std::string_view path)
{
    return platform::Wide(path);
}

std::string StartableProgram()
{
    return sample::WritePeImage({});
}

std::string BuildMachinePath(std::string path)
{
    std::ranges::replace(path, '/', '\\');
    return "Z:" + path;
}

bool RunsUnderWine()
{
    return GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version") != nullptr;
}

std::shared_ptr<void> RegisterBrowser(const std::string& record)
{
    const std::wstring command =
        L"\"" + platform::Wide(platform::MFile::FullPath(VELMO_RECORDING_BROWSER)) + L"\" \"%1\"";
    SetEnvironmentVariableW(platform::Wide(kRecordVariable).c_str(),
                            platform::Wide(record).c_str());
    const std::array outer{TextOfKey(kBrowserKeys[0]), TextOfKey(kBrowserKeys[1])};
    const auto set = [](const std::array<std::wstring, 2>& texts) {
        SetTextOfKey(kBrowserKeys[0], texts[0]);
        SetTextOfKey(kBrowserKeys[1], texts[1]);
    };
    set({command, command});
    return {nullptr, [=](void*) { set(outer); }};
}

} // namespace velmo::test
