#include "companion/CommandSetUp.h"

#include <array>

namespace velmo::companion
{
namespace
{

constexpr std::array kCommands{
    Command{"make",
            "Write the text that the vendor signs: of a folder that is laid out as the web server, "
            "both lists and every setup with their sizes and hashes.",
            SetUpMake},
    Command{"verify",
            "Check a file of signed lists as a desktop would, and the files of a folder against "
            "it. Exit code 0: all is well, 4: something is not.",
            SetUpVerify},
    Command{"lint",
            "Tell what the update managers would stumble over in the two lists of a folder, as "
            "file:line: text. Exit codes as for verify.",
            SetUpLint},
};

} // namespace

ExitCode RunLists(const std::vector<std::string>& arguments, std::ostream& output,
                  std::ostream& errors)
{
    return RunCommand(
        {"velmolists", "What the vendor publishes for its update managers", kCommands}, arguments,
        {output, errors});
}

} // namespace velmo::companion
