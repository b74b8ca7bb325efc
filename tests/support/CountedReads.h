#pragma once

#include <map>
#include <string>

namespace velmo::test
{

/// How often each file was opened for reading since the last call, by its name without folder in lower
/// case. For programs that link velmo_counted_reads, whose linker puts a counter before
/// platform::FileReader::Open(), through which all reading of files goes. Any thread.
[[nodiscard]] std::map<std::string, int> TakeCountedReads();

} // namespace velmo::test
