/// A process that writes a settings file and is torn out of it, for KilledWriters.cmake:
///
///     profile_writer <file> <writer> <writes> [<microseconds>]
///
/// checks what stands in the file (exit code 2 when anything is torn), then writes the keys of its own
/// section, as many as told; with microseconds it never ends by itself but is ended in the midst of
/// further writes, so long after. A writer that finished checks that nothing of its own is lost.
#include "platform/MFile.h"
#include "platform/PrivateProfile.h"

#include <atomic>
#include <chrono>
#include <cstdlib>
#include <iostream>
#include <thread>

namespace
{

using namespace velmo::platform;

std::string ValueOf(int key)
{
    return std::string(150, static_cast<char>('a' + key % 26));
}

bool IsWhole(const Profile& profile)
{
    for (const std::string& section : profile.SectionNames())
    {
        for (const auto& [key, value] : profile.Entries(section))
        {
            if (value != ValueOf(std::atoi(key.c_str())))
            {
                return false;
            }
        }
    }
    return profile.Value("First", "0") == ValueOf(0);
}

bool Write(const std::string& file, const std::string& section, int key)
{
    const auto written = WritePrivateProfileText(section, std::to_string(key), ValueOf(key), file);
    std::cerr << (written ? "" : written.Failure().description + "\n");
    return written.Ok();
}

} // namespace

int main(int argc, char** argv)
{
    using std::chrono::steady_clock;
    const std::string file = argc < 4 ? "" : MFile::FromCommandLine(argv[1]);
    if (argc < 4 ||
        (MFile::FileExists(file) ? !IsWhole(ReadProfile(file).Value()) : !Write(file, "First", 0)))
    {
        std::cerr << "torn\n";
        return 2;
    }
    const std::string section = argv[2];
    const int writes = std::atoi(argv[3]);
    std::atomic<int> done = 0;
    std::atomic<bool> failed = false;
    const auto write = [&](bool endless) {
        for (int key = 0; endless || key < writes; ++key, ++done)
        {
            failed = failed || !Write(file, section, key % 100);
        }
    };
    if (argc > 4)
    {
        std::thread(write, true).detach();
        while (done < writes)
        {
            std::this_thread::yield();
        }
        const auto end = steady_clock::now() + std::chrono::microseconds(std::atoi(argv[4]));
        while (steady_clock::now() < end)
        {}
        std::_Exit(failed ? 3 : 0);
    }
    write(false);
    const auto entries = ReadProfile(file).Value().Entries(section).size();
    return failed || entries < static_cast<std::size_t>(writes) ? 3 : 0;
}
