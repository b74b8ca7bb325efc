// Compares the download control with libcurl reading into memory, both from the same server on
// loopback, in turns: seconds for 512 MiB, their ratio, and what memory each needs beyond the file.
//
//     build/release/bench/net_grab_bench

#include "download/NetGrab.h"
#include "platform/HeadlessLoop.h"
#include "tests/support/FaultServer.h"

#include <curl/curl.h>

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fstream>
#include <string>
#include <vector>

namespace
{

using velmo::test::FaultServer;

constexpr std::size_t kBlock = 1U << 18;
constexpr std::size_t kFile = 512U << 20;
constexpr int kRounds = 7;

/// A figure of this process in KiB, such as "VmHWM:", the most memory it had.
long StatusKiB(const std::string& name)
{
    std::ifstream status("/proc/self/status");
    std::string word;
    while (status >> word)
    {
        if (word == name)
        {
            long value = 0;
            status >> value;
            return value;
        }
    }
    return 0;
}

struct Figures
{
    std::vector<double> seconds;
    long mostOverheadKiB = 0;

    [[nodiscard]] double Median() const
    {
        std::vector<double> sorted = seconds;
        std::sort(sorted.begin(), sorted.end());
        return sorted[sorted.size() / 2];
    }
};

/// Runs a download once. It returns the count of bytes that it has in memory at its end.
template <typename Download>
void Measure(Figures& figures, const Download& download)
{
    std::ofstream("/proc/self/clear_refs") << "5"; // Starts the high-water mark anew.
    const long before = StatusKiB("VmRSS:");
    const auto start = std::chrono::steady_clock::now();
    const std::size_t count = download();
    const std::chrono::duration<double> took = std::chrono::steady_clock::now() - start;
    if (count != kFile)
    {
        std::fprintf(stderr, "incomplete: %zu bytes\n", count);
        std::exit(1);
    }
    figures.seconds.push_back(took.count());
    figures.mostOverheadKiB = std::max(
        figures.mostOverheadKiB, StatusKiB("VmHWM:") - before - static_cast<long>(kFile / 1024));
}

class Silent final : public velmo::NetGrab::Listener
{
    void DownloadComplete(std::int32_t) override {}
    void DownloadFailed(std::int32_t, const std::string& description) override
    {
        std::fprintf(stderr, "%s\n", description.c_str());
    }
    void DownloadProgress(std::int32_t) override {}
};

std::size_t WithNetGrab(const std::string& url)
{
    velmo::platform::HeadlessLoop loop;
    Silent listener;
    velmo::NetGrab grab(loop, listener);
    grab.DownloadStart(url, 16);
    loop.RunUntil([&grab] { return !grab.Busy(); });
    return grab.Bytes().size();
}

struct Memory
{
    char* bytes = nullptr;
    std::size_t size = 0;
};

std::size_t Append(char* data, std::size_t size, std::size_t count, void* target)
{
    auto& memory = *static_cast<Memory*>(target);
    memory.bytes = static_cast<char*>(std::realloc(memory.bytes, memory.size + size * count));
    std::memcpy(memory.bytes + memory.size, data, size * count);
    memory.size += size * count;
    return size * count;
}

std::size_t WithCurl(const std::string& url)
{
    Memory memory;
    CURL* curl = curl_easy_init();
    curl_easy_setopt(curl, CURLOPT_URL, url.c_str());
    curl_easy_setopt(curl, CURLOPT_WRITEFUNCTION, &Append);
    curl_easy_setopt(curl, CURLOPT_WRITEDATA, &memory);
    curl_easy_perform(curl);
    curl_easy_cleanup(curl);
    std::free(memory.bytes);
    return memory.size;
}

void Print(const char* name, const Figures& figures)
{
    std::printf("%-8s %6.3f s  %7.0f MB/s  peak = file + %.1f MiB\n", name, figures.Median(),
                kFile / 1e6 / figures.Median(),
                static_cast<double>(figures.mostOverheadKiB) / 1024);
}

} // namespace

int main()
{
    FaultServer server;
    server.Play("/file", {FaultServer::Head(kFile),
                          FaultServer::Send(std::string(kBlock, 'x'), kFile / kBlock)});
    const std::string url = server.Url("/file");
    Figures curl;
    Figures grab;
    for (int round = 0; round < kRounds; ++round)
    {
        Measure(curl, [&url] { return WithCurl(url); });
        Measure(grab, [&url] { return WithNetGrab(url); });
    }
    Print("curl", curl);
    Print("NetGrab", grab);
    std::printf("NetGrab's throughput is %.2f of curl's\n", curl.Median() / grab.Median());
}
