#include "tests/support/TestSystem.h"

#include <cstdlib>
#include <fstream>

/// A browser that shows nothing: it adds the address that it was started with to its record.
int main(int argc, char** argv)
{
    const char* path = std::getenv(velmo::test::kRecordVariable);
    std::ofstream record(path != nullptr ? path : "", std::ios::app | std::ios::binary);
    for (int i = 1; i < argc; ++i)
    {
        record << argv[i] << (i + 1 < argc ? " " : "\n");
    }
    return record.flush() ? 0 : 1;
}
