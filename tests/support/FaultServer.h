#pragma once

#include "tests/support/LoopbackSocket.h"

#include <condition_variable>
#include <cstdint>
#include <list>
#include <map>
#include <mutex>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

namespace velmo::test
{

/// A web server on 127.0.0.1 that does what it is told, faults included: each path has a script that is
/// played to whoever asks for it. A path without one is "404 Not Found". Every request has a thread and
/// a connection of its own. Any thread may change scripts while it runs.
class FaultServer
{
  public:
    struct Step
    {
        /// Send; send byte by byte with pauses; wait for Release() of the path or the server's end;
        /// break the connection off.
        enum class Kind
        {
            Send,
            Drip,
            Hold,
            Reset
        } kind;
        std::string bytes = {};
        std::uint64_t times = 1; ///< That they are sent.
    };

    /// After its last step the connection ends in good order.
    using Script = std::vector<Step>;

    FaultServer() = default;
    ~FaultServer();
    FaultServer(const FaultServer&) = delete;
    FaultServer& operator=(const FaultServer&) = delete;

    /// "http://127.0.0.1:<port><path>", or with another scheme.
    [[nodiscard]] std::string Url(std::string_view path, std::string_view scheme = "http") const
    {
        return std::string(scheme).append("://127.0.0.1:" + std::to_string(m_port)).append(path);
    }

    /// What is answered to requests for @a path, whatever its query; for "" what is answered to a
    /// client that begins a secure connection, which a fresh server drops.
    void Play(const std::string& path, Script script);

    /// A page or file that is there: "200 OK" and its bytes.
    void Serve(const std::string& path, std::string_view content)
    {
        Play(path, Answer("200 OK", content));
    }

    /// Lets scripts for @a path go on past their holds, those that come later too.
    void Release(const std::string& path);
    /// Waits until the path has been asked for, so often.
    void AwaitRequest(const std::string& path, int times = 1);
    /// The heads of all requests so far, each with its request line first.
    [[nodiscard]] std::vector<std::string> Requests() const;
    /// How often the path has been asked for.
    [[nodiscard]] int CountOf(const std::string& path) const;

    static Step Send(std::string_view bytes, std::uint64_t times = 1)
    {
        return {Step::Kind::Send, std::string(bytes), times};
    }
    static Step Drip(std::string_view bytes) { return {Step::Kind::Drip, std::string(bytes)}; }
    static Step Hold() { return {Step::Kind::Hold}; }
    static Step Reset() { return {Step::Kind::Reset}; }
    /// The head of a "200 OK" that announces @a length bytes.
    [[nodiscard]] static Step Head(std::uint64_t length);
    /// A whole answer with the right length.
    [[nodiscard]] static Script Answer(std::string_view statusLine, std::string_view content = {});
    /// Sends the reader elsewhere, to a path or to an address.
    [[nodiscard]] static Script Redirect(std::string_view location);
    /// A "200 OK" in one chunk; without @a finish it breaks off after that.
    [[nodiscard]] static Script Chunked(std::string_view content, bool finish = true);

  private:
    struct Connection
    {
        LoopbackSocket socket;
        std::string path; ///< What it has asked for.
        std::jthread thread;
    };

    void AcceptAll();
    void Talk(Connection& connection);
    [[nodiscard]] Script ScriptFor(const std::string& head, Connection& connection);
    bool Do(const Step& step, Connection& connection);

    LoopbackSocket m_listener = LoopbackSocket::Listening(64);
    const int m_port = m_listener.Port();
    mutable std::mutex m_mutex;
    std::condition_variable m_changed;
    std::map<std::string, Script> m_scripts;
    std::map<std::string, bool> m_released;
    std::vector<std::string> m_requests;
    bool m_stopping = false;
    std::list<Connection> m_connections;
    std::jthread m_acceptor{[this] { AcceptAll(); }};
};

} // namespace velmo::test
