// How long a start-up run takes that has nothing to say, beside one curl process that fetches the
// same two lists and a program that does nothing: the sample desktop, 200 databases listed and 60 of
// them installed, all up to date.
//
//     startup_bench SMALL WHOLE EMPTY             native programs, on a desktop of its own
//     startup_bench SMALL WHOLE EMPTY LAY_OUT     Windows programs under Wine; LAY_OUT is
//                                                 velmo-sample-desktop.exe, for the prefix that
//                                                 WINEPREFIX names
//
// SMALL is the program (bin/VelmoUpd of a build), WHOLE one with the windows linked into it
// (bench/startup_whole), EMPTY the one that does nothing (bench/startup_empty).

#include "platform/MFile.h"
#include "sample/SampleDesktop.h"
#include "sample/SampleEquipment.h"
#include "sample/SampleVendorSite.h"
#include "tests/support/FaultServer.h"

#include <fcntl.h>
#include <spawn.h>
#include <stdlib.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

extern char** environ;

namespace velmo
{
namespace
{

namespace fs = std::filesystem;
using Words = std::vector<std::string>;

constexpr int kRuns = 20;
constexpr char kCaller[] = "STARTUP Chillersize 5";

struct Cost
{
    double milliseconds = 0;
    double megabytes = 0; ///< Most memory at one time.
};

Cost Run(const Words& words)
{
    std::vector<char*> argv;
    for (const std::string& word : words)
    {
        argv.push_back(const_cast<char*>(word.c_str()));
    }
    argv.push_back(nullptr);
    posix_spawn_file_actions_t files;
    posix_spawn_file_actions_init(&files);
    posix_spawn_file_actions_addopen(&files, STDOUT_FILENO, "/dev/null", O_WRONLY, 0);
    const auto start = std::chrono::steady_clock::now();
    pid_t process = 0;
    if (posix_spawnp(&process, argv[0], &files, nullptr, argv.data(), environ) != 0)
    {
        throw std::runtime_error("cannot start " + words.front());
    }
    posix_spawn_file_actions_destroy(&files);
    int status = 0;
    rusage usage{};
    wait4(process, &status, 0, &usage);
    const std::chrono::duration<double, std::milli> time = std::chrono::steady_clock::now() - start;
    if (!WIFEXITED(status) || WEXITSTATUS(status) != 0)
    {
        throw std::runtime_error("failed: " + words.front());
    }
    return {time.count(), static_cast<double>(usage.ru_maxrss) / 1024};
}

void Report(const char* name, const Words& words)
{
    Run(words); // Once for the file system's caches.
    std::vector<Cost> costs;
    for (int i = 0; i < kRuns; ++i)
    {
        std::this_thread::sleep_for(std::chrono::milliseconds(200));
        costs.push_back(Run(words));
    }
    std::ranges::sort(costs, {}, &Cost::milliseconds);
    std::printf("%-28s %7.1f ms   (%.1f to %.1f)   %5.1f MB\n", name, costs[kRuns / 2].milliseconds,
                costs.front().milliseconds, costs.back().milliseconds,
                std::ranges::max(costs, {}, &Cost::megabytes).megabytes);
}

/// The vendor's lists, in which every database is older than the installed one.
void ServeLists(test::FaultServer& server)
{
    constexpr auto kLongAgo = std::chrono::year(1990) / 1 / 1;
    auto sections = sample::SampleEquipment();
    for (auto& section : sections)
    {
        for (auto& database : section.databases)
        {
            database.released = kLongAgo;
        }
        section.pictures.reset(); // Those of unknown age are always offered.
    }
    const sample::SampleVendorSite site(server.Url(""), sections);
    for (const char* list : {"/pub/demo/version.ini", "/pub/demo/manufver.ini"})
    {
        server.Serve(list, site.Find(list)->bytes);
    }
}

std::string Root(bool underWine)
{
    if (underWine)
    {
        const char* prefix = getenv("WINEPREFIX");
        return prefix == nullptr ? throw std::runtime_error("WINEPREFIX is not set") : prefix;
    }
    std::string root = (fs::temp_directory_path() / "velmo-bench-XXXXXX").string();
    if (mkdtemp(root.data()) == nullptr)
    {
        throw std::runtime_error("no temporary folder");
    }
    setenv("VELMO_HOME", root.c_str(), 1);
    return root;
}

void Measure(const Words& arguments)
{
    const bool underWine = arguments.size() == 4;
    test::FaultServer server;
    ServeLists(server);
    const fs::path root = Root(underWine);
    if (underWine)
    {
        Run({"wine", arguments[3], "--server", server.Url("")});
    }
    else
    {
        sample::SampleDesktopChoices choices;
        choices.server = server.Url("");
        if (const auto done = sample::LayOutSampleDesktop(choices); !done)
        {
            throw std::runtime_error(done.Failure().description);
        }
    }

    const auto program = [underWine](const std::string& path, const std::string& commandLine) {
        Words words;
        if (underWine)
        {
            words.push_back("wine");
        }
        words.push_back(path);
        if (!commandLine.empty())
        {
            words.push_back(commandLine);
        }
        return words;
    };
    Report("curl, both lists",
           {"curl", "-s", "-o", "/dev/null", server.Url("/pub/demo/version.ini"), "-o", "/dev/null",
            server.Url("/pub/demo/manufver.ini")});
    Report("empty program", program(arguments[2], {}));
    const int before = server.CountOf("/pub/demo/manufver.ini");
    Report("silent run", program(arguments[0], kCaller));
    if (server.CountOf("/pub/demo/manufver.ini") != before + kRuns + 1)
    {
        throw std::runtime_error("the program did not fetch the lists in each run");
    }
    Report("silent run, windows linked in", program(arguments[1], kCaller));
    if (!underWine)
    {
        fs::remove_all(root);
    }
}

} // namespace
} // namespace velmo

int main(int argc, char** argv)
{
    if (argc < 4 || argc > 5)
    {
        std::fprintf(stderr, "usage: startup_bench SMALL WHOLE EMPTY [LAY_OUT]\n");
        return 2;
    }
    try
    {
        velmo::Measure({argv + 1, argv + argc});
    }
    catch (const std::exception& fault)
    {
        std::fprintf(stderr, "startup_bench: %s\n", fault.what());
        return 1;
    }
}
