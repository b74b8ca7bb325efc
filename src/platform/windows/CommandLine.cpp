#include "platform/CommandLine.h"

#include "platform/windows/WideText.h"

#include <windows.h>

#include <shellapi.h>

namespace velmo::platform
{

std::string CommandLineText(int /*argc*/, char** /*argv*/)
{
    std::wstring_view line = GetCommandLineW();
    // The program's own name ends at its closing quote or at the first blank; a line that begins with
    // a blank, which callers send who pass the name apart from the arguments, has an empty one.
    const bool quoted = line.starts_with(L'"');
    const std::size_t end = line.find_first_of(quoted ? L"\"" : L" \t", quoted ? 1 : 0);
    line.remove_prefix(end == std::wstring_view::npos ? line.size() : end + (quoted ? 1 : 0));
    const std::size_t first = line.find_first_not_of(L" \t");
    return first == std::wstring_view::npos ? std::string() : Narrow(line.substr(first));
}

std::vector<std::string> Arguments(int /*argc*/, char** /*argv*/)
{
    int count = 0;
    wchar_t** words = CommandLineToArgvW(GetCommandLineW(), &count);
    std::vector<std::string> arguments;
    for (int i = 1; i < count; ++i)
    {
        arguments.push_back(Narrow(words[i]));
    }
    LocalFree(words);
    return arguments;
}

} // namespace velmo::platform
