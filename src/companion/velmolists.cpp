#include "companion/Commands.h"
#include "manager/RunGuarded.h"
#include "platform/CommandLine.h"

#include <iostream>

int main(int argc, char** argv)
{
    using namespace velmo;
    const auto run = [&] {
        return static_cast<int>(
            companion::RunLists(platform::Arguments(argc, argv), std::cout, std::cerr));
    };
    return RunGuarded(run, static_cast<int>(companion::ExitCode::Failed));
}
