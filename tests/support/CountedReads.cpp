#include "tests/support/CountedReads.h"

#include "platform/FileReader.h"
#include "text/TextCase.h"

#include <mutex>

namespace velmo::test
{
namespace
{

std::mutex mutex;
std::map<std::string, int> counts;

} // namespace

/// What the linker means by FileReader::Open() itself.
Result<platform::FileReader> OpenUncounted(std::string_view path) asm(VELMO_REAL_OPEN);

/// What every caller of FileReader::Open() in another object calls instead.
Result<platform::FileReader> OpenCounted(std::string_view path) asm(VELMO_COUNTED_OPEN);

Result<platform::FileReader> OpenCounted(std::string_view path)
{
    {
        const std::lock_guard lock(mutex);
        ++counts[LowerCase(path.substr(path.find_last_of("\\/") + 1))];
    }
    return OpenUncounted(path);
}

std::map<std::string, int> TakeCountedReads()
{
    const std::lock_guard lock(mutex);
    return std::exchange(counts, {});
}

} // namespace velmo::test
