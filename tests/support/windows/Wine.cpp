#include "tests/support/Wine.h"

#include <windows.h>

namespace velmo::test
{

bool RunsUnderWine()
{
    return GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version") != nullptr;
}

} // namespace velmo::test
