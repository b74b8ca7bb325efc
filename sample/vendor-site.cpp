#include "platform/MFile.h"
#include "sample/SampleSetups.h"
#include "sample/SampleVendorSite.h"

#include <CLI/CLI.hpp>
#include <httplib.h>

#include <chrono>
#include <condition_variable>
#include <csignal>
#include <iostream>
#include <mutex>
#include <optional>
#include <stop_token>
#include <string>
#include <thread>
#include <utility>

/**
    The sample vendor's web server, for this computer only. Prints its address, then a line for each
    request; ends on SIGTERM or SIGINT.
 */
namespace
{

constexpr const char* kHost = "127.0.0.1";

/// Delays answers, but not the end of the program.
class Delay
{
  public:
    Delay(std::chrono::milliseconds length, std::stop_token stop) : m_length(length), m_stop(stop)
    {}

    void Wait()
    {
        std::unique_lock lock(m_mutex);
        m_never.wait_for(lock, m_stop, m_length, [] { return false; });
    }

  private:
    std::chrono::milliseconds m_length;
    std::stop_token m_stop;
    std::mutex m_mutex;
    std::condition_variable_any m_never;
};

void SetUp(httplib::Server& server)
{
    // The library's own choice lets two servers share one port unnoticed.
    server.set_socket_options([](socket_t socket) {
        const int yes = 1;
        setsockopt(socket, SOL_SOCKET, SO_REUSEADDR, &yes, sizeof(yes));
    });
    server.set_keep_alive_max_count(1); // The end never waits for an idle client.
    server.set_logger([](const httplib::Request& request, const httplib::Response& response) {
        std::cout << request.method + " " + request.path + " " + std::to_string(response.status) +
                         "\n"
                  << std::flush;
    });
}

void Serve(httplib::Server& server, const velmo::sample::SampleVendorSite& site,
           const velmo::sample::SampleSetups& setups, Delay& delay)
{
    server.Get(".*", [&](const httplib::Request& request, httplib::Response& response) {
        delay.Wait();
        if (const velmo::sample::SiteFile* file = site.Find(request.path))
        {
            response.set_content(file->bytes, file->contentType);
            return;
        }
        if (auto setup = setups.Make(request.path))
        {
            response.set_content(std::move(*setup), "application/octet-stream");
            return;
        }
        response.status = 404;
        response.set_content("The sample vendor has no such page.\r\n", "text/plain");
    });
}

/// The program's bytes; empty for no path. Says why when it cannot be read.
std::optional<std::string> ReadProgram(const std::string& path)
{
    namespace MFile = velmo::platform::MFile;
    auto bytes = path.empty() ? velmo::Result<std::string>(std::string())
                              : MFile::ReadAll(MFile::FromCommandLine(path));
    if (!bytes)
    {
        std::cerr << path << ": " << bytes.Failure().description << "\n";
        return std::nullopt;
    }
    return std::move(bytes).Value();
}

} // namespace

int main(int argc, char** argv)
{
    int port = 0;
    int slow = 0;
    CLI::App options("Serves the sample vendor's web site to this computer.");
    options.add_option("--port", port, "Port to listen on; 0 = any free one")
        ->check(CLI::Range(0, 65535));
    options.add_option("--slow", slow, "Milliseconds to wait before each answer")
        ->check(CLI::Range(0, 600'000));
    std::string setupProgram;
    options.add_option("--setups", setupProgram,
                       "velmo-equipment-setup of the build whose equipment setups shall be served");
    CLI11_PARSE(options, argc, argv);
    auto program = ReadProgram(setupProgram);
    if (!program)
    {
        return 1;
    }

    // Before any thread starts, so that the signals wait for sigwait() below.
    sigset_t signals;
    sigemptyset(&signals);
    sigaddset(&signals, SIGTERM);
    sigaddset(&signals, SIGINT);
    pthread_sigmask(SIG_BLOCK, &signals, nullptr);

    httplib::Server server;
    SetUp(server);
    const int bound = port == 0                          ? server.bind_to_any_port(kHost)
                      : server.bind_to_port(kHost, port) ? port
                                                         : -1;
    if (bound < 0)
    {
        std::cerr << "Port " << port << " cannot be listened on.\n";
        return 1;
    }
    const std::string address = std::string("http://") + kHost + ":" + std::to_string(bound);
    const velmo::sample::SampleSetups setups(std::move(*program));
    const velmo::sample::SampleVendorSite site(address, setups.Sections());
    std::stop_source stop;
    Delay delay(std::chrono::milliseconds(slow), stop.get_token());
    Serve(server, site, setups, delay);

    std::thread listener([&] { server.listen_after_bind(); });
    while (!server.is_running()) // Before that it cannot be stopped.
    {
        std::this_thread::yield();
    }
    std::cout << "listening on " << address << std::endl;
    int signal = 0;
    sigwait(&signals, &signal);
    stop.request_stop();
    server.stop();
    listener.join();
    return 0;
}
