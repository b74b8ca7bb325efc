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

constexpr const wchar_t* kUserKey = L"Software\\VB and VBA Program Settings\\Velmo Software";
constexpr const wchar_t* kPolicyKey = L"Software\\Policies\\Velmo Software";

/// The machine's: Wine's shell never looks at the user's own classes when the machine has the same one.
constexpr std::array kBrowserKeys{L"Software\\Classes\\http\\shell\\open\\command",
                                  L"Software\\Classes\\https\\shell\\open\\command"};

/// No test's own program: those run beside one another.
bool IsOfTheVendor(const std::wstring& program, const std::wstring& folder)
{
    const std::wstring name = program.substr(program.rfind(L'\\') + 1);
    return program.starts_with(folder) || name.starts_with(L"Velmo") || name.starts_with(L"velmo");
}

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
        if (process != nullptr && QueryFullProcessImageNameW(process, 0, path.data(), &length) &&
            IsOfTheVendor(path.data(), folder) && TerminateProcess(process, 1))
        {
            WaitForSingleObject(process, INFINITE); // Its files can go then.
        }
        CloseHandle(process);
    }
}

/// Holds a lock while it lives, since other test programs share this machine's stores.
class Desktop
{
  public:
    explicit Desktop(const std::string& folder)
        : m_turn(CreateMutexW(nullptr, FALSE, L"velmo-temporary-desktop")),
          m_folder(platform::Wide(folder))
    {
        WaitForSingleObject(m_turn, INFINITE);
        EndPrograms(m_folder); // Of a test whose process was ended.
        std::filesystem::create_directories(m_folder);
        EmptySharedStores();
    }
    Desktop(const Desktop&) = delete;
    Desktop& operator=(const Desktop&) = delete;
    ~Desktop()
    {
        EndPrograms(m_folder);
        EmptySharedStores();
        std::error_code ignored;
        std::filesystem::remove_all(m_folder, ignored);
        ReleaseMutex(m_turn);
        CloseHandle(m_turn);
    }

  private:
    static void EmptySharedStores()
    {
        (void)platform::WritePrivateProfileText("Velmo Software", std::nullopt, std::nullopt,
                                                platform::WindowsDirectory() + "Win.ini");
        RegDeleteTreeW(HKEY_CURRENT_USER, kUserKey);
        RegDeleteTreeW(HKEY_LOCAL_MACHINE, kPolicyKey);
    }

    HANDLE m_turn;
    std::filesystem::path m_folder;
};

/// A text of the machine's registry that is another one for a while.
class RegisteredText
{
  public:
    RegisteredText(const wchar_t* key, const std::wstring& text) : m_key(key)
    {
        std::array<wchar_t, 1024> outer{};
        DWORD size = sizeof outer;
        RegGetValueW(HKEY_LOCAL_MACHINE, key, nullptr, RRF_RT_REG_SZ, nullptr, outer.data(), &size);
        m_outer = outer.data();
        if (Set(text) != ERROR_SUCCESS)
        {
            throw std::runtime_error("cannot write to the machine's registry");
        }
    }
    RegisteredText(const RegisteredText&) = delete;
    RegisteredText& operator=(const RegisteredText&) = delete;
    ~RegisteredText() { Set(m_outer); }

  private:
    LSTATUS Set(const std::wstring& text) const
    {
        return RegSetKeyValueW(HKEY_LOCAL_MACHINE, m_key, nullptr, REG_SZ, text.c_str(),
                               static_cast<DWORD>((text.size() + 1) * sizeof(wchar_t)));
    }

    const wchar_t* m_key;
    std::wstring m_outer;
};

} // namespace

std::shared_ptr<void> NewDesktop(const std::string& folder)
{
    return std::make_shared<Desktop>(folder);
}

unsigned long ProcessNumber()
{
    return GetCurrentProcessId();
}

std::filesystem::path NativePath(std::string_view path)
{
    return platform::Wide(path);
}

bool MakeFolderLink(std::string_view link, std::string_view target)
{
    constexpr DWORD kFlags =
        SYMBOLIC_LINK_FLAG_DIRECTORY | SYMBOLIC_LINK_FLAG_ALLOW_UNPRIVILEGED_CREATE;
    // Wine says that it did, and did nothing.
    return CreateSymbolicLinkW(platform::Wide(link).c_str(), platform::Wide(target).c_str(),
                               kFlags) != FALSE &&
           platform::MFile::IsLink(link);
}

std::string StartableProgram()
{
    return sample::WritePeImage({});
}

void MakeStartable(std::string_view /*file*/)
{
    // Its bytes are enough.
}

std::string BuildMachinePath(std::string path)
{
    std::ranges::replace(path, '/', '\\');
    return "Z:" + path;
}

std::string TestDataPath(std::string_view relative)
{
    return BuildMachinePath(VELMO_TEST_DATA "/" + std::string(relative));
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
    using Keys = std::array<RegisteredText, 2>;
    return std::shared_ptr<Keys>(new Keys{RegisteredText(kBrowserKeys[0], command),
                                          RegisteredText(kBrowserKeys[1], command)});
}

} // namespace velmo::test
