#include "platform/ProgramLibrary.h"

#include "platform/ErrorCode.h"

#include <dlfcn.h>

#include <cstdio>
#include <filesystem>

namespace velmo::platform
{
Result<LibraryFunction> LoadFromProgramFolder(const std::string& name, const std::string& function)
{
    std::error_code ignored;
    const std::filesystem::path path =
        std::filesystem::read_symlink("/proc/self/exe", ignored).parent_path() /
        ("lib" + name + ".so");
    void* library = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (library == nullptr)
    {
        return Error{error_code::kModuleNotFound, dlerror()};
    }
    void* address = dlsym(library, function.c_str());
    if (address == nullptr)
    {
        return Error{error_code::kProcedureNotFound, dlerror()};
    }
    return LibraryFunction{address, library};
}

void TellFailure(const std::string& title, const std::string& text)
{
    std::fprintf(stderr, "%s: %s\n", title.c_str(), text.c_str());
}

} // namespace velmo::platform
