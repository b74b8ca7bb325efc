#pragma once

#include "tests/support/LoopbackSocket.h"

#include <condition_variable>
#include <cstdint>
#include <functional>
#include <list>
#include <map>
#include <mutex>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

namespace velmo::test
{

/**
    A web server on 127.0.0.1 that does what it is told, faults included: each path has a script that
    is played to whoever asks for it. A path without a script is "404 Not Found". Every request has a
    thread and a connection of its own. Any thread may change scripts while it runs.
 */
class FaultServer
{
  public:
    struct Connection
    {
        LoopbackSocket socket;
        std::string path; ///< What it has asked for.
        std::thread thread;
    };

    /// One thing to do; false when that has broken the connection off.
    using Step = std::function<bool(FaultServer&, Connection&)>;

    /// After its last step the connection ends in good order.
    using Script = std::vector<Step>;

    FaultServer();
    ~FaultServer();
    FaultServer(const FaultServer&) = delete;
    FaultServer& operator=(const FaultServer&) = delete;

    [[nodiscard]] int Port() const { return m_port; }

    /// "http://127.0.0.1:<port><path>", or with another scheme.
    [[nodiscard]] std::string Url(std::string_view path, std::string_view scheme = "http") const;

    /// What is answered to requests for @a path, whatever its query; for "" what is answered to a
    /// client that begins a secure connection, which a fresh server drops.
    void Play(const std::string& path, Script script);

    /// A page or file that is there: "200 OK" and its bytes.
    void Serve(const std::string& path, std::string_view content);

    /// Lets scripts for @a path go on past their holds, those that come later too.
    void Release(const std::string& path);

    /// Waits until the path has been asked for.
    void AwaitRequest(const std::string& path);

    /// The heads of all requests so far, each with its request line first.
    [[nodiscard]] std::vector<std::string> Requests() const;

    /// How often the path has been asked for.
    [[nodiscard]] int CountOf(const std::string& path) const;

    // Scripts and pieces of scripts.

    /// A whole answer with the right length.
    [[nodiscard]] static Script Answer(std::string_view statusLine, std::string_view content = {});
    /// The head of a "200 OK" that announces @a length bytes.
    [[nodiscard]] static Step Head(std::uint64_t length);
    /// Sends the bytes, @a times over.
    [[nodiscard]] static Step Send(std::string_view bytes, std::uint64_t times = 1);
    /// Sends the bytes one by one with a pause between them.
    [[nodiscard]] static Step Drip(std::string_view bytes);
    /// Waits for Release() of the path, or the server's end.
    [[nodiscard]] static Step Hold();
    /// Breaks the connection off.
    [[nodiscard]] static Step Reset();
    /// Sends the reader elsewhere, to a path or to an address.
    [[nodiscard]] static Script Redirect(std::string_view location);
    /// A "200 OK" in one chunk; without @a finish it breaks off after that.
    [[nodiscard]] static Script Chunked(std::string_view content, bool finish = true);

  private:
    void AcceptAll();
    void Talk(Connection& connection);
    [[nodiscard]] Script ScriptFor(const std::string& head, Connection& connection);

    LoopbackSocket m_listener;
    int m_port = 0;
    mutable std::mutex m_mutex;
    std::condition_variable m_changed;
    std::map<std::string, Script> m_scripts;
    std::map<std::string, bool> m_released;
    std::vector<std::string> m_requests;
    std::list<Connection> m_connections;
    bool m_stopping = false;
    std::thread m_acceptor;
};

} // namespace velmo::test
