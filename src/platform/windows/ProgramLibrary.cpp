#include "platform/ProgramLibrary.h"

#include "platform/DesktopFolders.h"
#include "platform/windows/WideText.h"

#include <windows.h>

namespace velmo::platform
{

Result<LibraryFunction> LoadFromProgramFolder(const std::string& name, const std::string& function)
{
    const std::wstring path = Wide(ProgramFolder() + name + ".dll");
    HMODULE library = LoadLibraryExW(
        path.c_str(), nullptr, LOAD_LIBRARY_SEARCH_DLL_LOAD_DIR | LOAD_LIBRARY_SEARCH_SYSTEM32);
    if (library == nullptr)
    {
        return LastSystemError();
    }
    FARPROC address = GetProcAddress(library, function.c_str());
    if (address == nullptr)
    {
        return LastSystemError();
    }
    return LibraryFunction{reinterpret_cast<void*>(address), library};
}

void TellFailure(const std::string& title, const std::string& text)
{
    MessageBoxW(nullptr, Wide(text).c_str(), Wide(title).c_str(), MB_OK | MB_ICONSTOP);
}

} // namespace velmo::platform
