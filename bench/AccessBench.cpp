// How long it takes to read the release dates of 1,000 installed databases, once they have been
// read before, with this program's reader and, where it is there, with mdbtools' library.
//
//     build/release/bench/access_bench
#include "access/AccessFile.h"
#include "bench/MdbToolsReleaseDate.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <random>
#include <string>
#include <vector>

namespace
{

namespace fs = std::filesystem;

constexpr std::size_t kDatabases = 1'000;
constexpr int kRounds = 25;

/// 1,000 copies of the sample databases, in turn, in a folder of their own.
class InstalledDatabases
{
  public:
    InstalledDatabases()
    {
        fs::create_directory(m_folder);
        std::vector<fs::path> samples;
        for (const auto& entry : fs::directory_iterator(VELMO_TEST_DATA "/access/equipment"))
        {
            samples.push_back(entry.path());
        }
        std::ranges::sort(samples);
        for (std::size_t i = 0; i < kDatabases; ++i)
        {
            const fs::path& sample = samples[i % samples.size()];
            const fs::path copy = m_folder / (std::to_string(i) + sample.extension().string());
            fs::copy_file(sample, copy);
            m_paths.push_back(copy.string());
        }
    }
    InstalledDatabases(const InstalledDatabases&) = delete;
    InstalledDatabases& operator=(const InstalledDatabases&) = delete;
    ~InstalledDatabases()
    {
        std::error_code ignored;
        fs::remove_all(m_folder, ignored);
    }

    [[nodiscard]] const std::vector<std::string>& Paths() const { return m_paths; }

  private:
    fs::path m_folder =
        fs::temp_directory_path() / ("velmo-access-" + std::to_string(std::random_device{}()));
    std::vector<std::string> m_paths;
};

std::string OurReleaseDate(const std::string& path)
{
    auto file = velmo::AccessFile::Open(path);
    if (!file)
    {
        return {};
    }
    auto field = std::move(file).Value().FirstRecordField("Header", "ReleaseDate");
    return field ? std::move(field).Value().text : std::string();
}

std::string TheirReleaseDate(const std::string& path)
{
    return MdbToolsReleaseDate(path).value_or("");
}

struct Timing
{
    double milliseconds = 1e9; ///< Of the fastest round.
    std::size_t dates = 0;     ///< How many of the databases gave one.
};

void RunRound(const std::vector<std::string>& paths, std::string (*read)(const std::string&),
              Timing& timing)
{
    timing.dates = 0;
    const auto start = std::chrono::steady_clock::now();
    for (const std::string& path : paths)
    {
        timing.dates += read(path).empty() ? 0 : 1;
    }
    const std::chrono::duration<double, std::milli> took = std::chrono::steady_clock::now() - start;
    timing.milliseconds = std::min(timing.milliseconds, took.count());
}

} // namespace

int main()
{
    const InstalledDatabases databases;
    const bool isCompared = MdbToolsReleaseDate(databases.Paths().front()).has_value();
    Timing ours;
    Timing theirs;
    // Turn and turn about, so that a busy machine slows both.
    for (int round = 0; round < kRounds; ++round)
    {
        RunRound(databases.Paths(), OurReleaseDate, ours);
        if (isCompared)
        {
            RunRound(databases.Paths(), TheirReleaseDate, theirs);
        }
    }
    std::printf("velmo    %8.2f ms for %zu databases, %zu dates\n", ours.milliseconds, kDatabases,
                ours.dates);
    if (!isCompared)
    {
        std::printf("mdbtools' library was not there when this was built\n");
        return 0;
    }
    std::printf("mdbtools %8.2f ms for %zu databases, %zu dates\n", theirs.milliseconds, kDatabases,
                theirs.dates);
    std::printf("ratio    %8.2f\n", theirs.milliseconds / ours.milliseconds);
    return 0;
}
