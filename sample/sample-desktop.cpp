#include "sample/SampleDesktop.h"

#include <CLI/CLI.hpp>

#include <iostream>
#include <string>

/// Lays out the sample desktop on the desktop that this program runs on.
int main(int argc, char** argv)
{
    velmo::sample::SampleDesktopChoices choices;
    CLI::App options("Lays out a sample desktop with some of the vendor's programs.");
    options.add_option("--server", choices.server,
                       "Web server that the update manager shall use: http://host:port");
    CLI11_PARSE(options, argc, argv);

    if (const auto done = velmo::sample::LayOutSampleDesktop(choices); !done)
    {
        std::cerr << "The sample desktop is not complete: " << done.Failure().description << "\n";
        return 1;
    }
    std::cout << "Sample desktop in " << choices.root << " with "
              << velmo::sample::kInstalledPrograms.size() << " programs\n";
    return 0;
}
