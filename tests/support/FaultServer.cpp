#include "tests/support/FaultServer.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <utility>

namespace velmo::test
{
namespace
{

constexpr std::chrono::milliseconds kDripPause{5};
constexpr char kTlsHandshake = 0x16; ///< First byte of a client that begins a secure connection.

/// "GET /a/b?c HTTP/1.1 ..." -> "/a/b"
std::string PathOf(const std::string& head)
{
    const std::size_t start = std::min(head.find(' '), head.size() - 1) + 1;
    const std::size_t end = head.find_first_of(" ?\r", start);
    return head.substr(start, end - start);
}

std::string LengthLine(std::uint64_t length)
{
    return "Content-Length: " + std::to_string(length) + "\r\n";
}

std::string HeadText(std::string_view statusLine, const std::string& line)
{
    return "HTTP/1.1 " + std::string(statusLine) + "\r\n" + line + "Connection: close\r\n\r\n";
}

std::string ReadHead(const LoopbackSocket& socket)
{
    std::string head;
    while (head.find("\r\n\r\n") == std::string::npos)
    {
        const std::string more = socket.Receive();
        head += more;
        if (more.empty() || head.front() == kTlsHandshake)
        {
            break;
        }
    }
    return head;
}

} // namespace

FaultServer::FaultServer()
    : m_listener(LoopbackSocket::Listening(64)), m_port(m_listener.Port()),
      m_acceptor([this] { AcceptAll(); })
{}

FaultServer::~FaultServer()
{
    {
        const std::lock_guard lock(m_mutex);
        m_stopping = true;
        for (const Connection& connection : m_connections)
        {
            if (connection.socket.IsOpen())
            {
                connection.socket.Shutdown();
            }
        }
    }
    m_changed.notify_all();
    // One connection more wakes the acceptor on every system.
    const LoopbackSocket last = LoopbackSocket::Connecting(m_port);
    m_acceptor.join();
    for (Connection& connection : m_connections)
    {
        connection.thread.join();
    }
}

std::string FaultServer::Url(std::string_view path, std::string_view scheme) const
{
    return std::string(scheme) + "://127.0.0.1:" + std::to_string(m_port) + std::string(path);
}

void FaultServer::Play(const std::string& path, Script script)
{
    const std::lock_guard lock(m_mutex);
    m_scripts[path] = std::move(script);
}

void FaultServer::Serve(const std::string& path, std::string_view content)
{
    Play(path, Answer("200 OK", content));
}

void FaultServer::Release(const std::string& path)
{
    {
        const std::lock_guard lock(m_mutex);
        m_released[path] = true;
    }
    m_changed.notify_all();
}

void FaultServer::AwaitRequest(const std::string& path)
{
    std::unique_lock lock(m_mutex);
    m_changed.wait(lock, [&] { return std::ranges::count(m_requests, path, PathOf) > 0; });
}

std::vector<std::string> FaultServer::Requests() const
{
    const std::lock_guard lock(m_mutex);
    return m_requests;
}

int FaultServer::CountOf(const std::string& path) const
{
    return static_cast<int>(std::ranges::count(Requests(), path, PathOf));
}

FaultServer::Script FaultServer::Answer(std::string_view statusLine, std::string_view content)
{
    return {Send(HeadText(statusLine, LengthLine(content.size())) + std::string(content))};
}

FaultServer::Step FaultServer::Head(std::uint64_t length)
{
    return Send(HeadText("200 OK", LengthLine(length)));
}

FaultServer::Step FaultServer::Send(std::string_view bytes, std::uint64_t times)
{
    return [bytes = std::string(bytes), times](FaultServer&, Connection& connection) {
        bool sent = true;
        for (std::uint64_t i = 0; sent && i < times; ++i)
        {
            sent = connection.socket.Send(bytes);
        }
        return sent;
    };
}

FaultServer::Step FaultServer::Drip(std::string_view bytes)
{
    return [bytes = std::string(bytes)](FaultServer& server, Connection& connection) {
        return std::ranges::all_of(bytes, [&](char byte) {
            std::unique_lock lock(server.m_mutex);
            return !server.m_changed.wait_for(lock, kDripPause, [&] {
                return server.m_stopping;
            }) && connection.socket.Send({&byte, 1});
        });
    };
}

FaultServer::Step FaultServer::Hold()
{
    return [](FaultServer& server, Connection& connection) {
        std::unique_lock lock(server.m_mutex);
        server.m_changed.wait(
            lock, [&] { return server.m_stopping || server.m_released[connection.path]; });
        return !server.m_stopping;
    };
}

FaultServer::Step FaultServer::Reset()
{
    return [](FaultServer& server, Connection& connection) {
        const std::lock_guard lock(server.m_mutex);
        connection.socket.Reset();
        return false;
    };
}

FaultServer::Script FaultServer::Redirect(std::string_view location)
{
    return {
        Send(HeadText("302 Found", "Location: " + std::string(location) + "\r\n" + LengthLine(0)))};
}

FaultServer::Script FaultServer::Chunked(std::string_view content, bool finish)
{
    std::array<char, 20> size{};
    std::snprintf(size.data(), size.size(), "%zx\r\n", content.size());
    return {Send(HeadText("200 OK", "Transfer-Encoding: chunked\r\n") + size.data() +
                 std::string(content) + (finish ? "\r\n0\r\n\r\n" : ""))};
}

void FaultServer::AcceptAll()
{
    for (;;)
    {
        LoopbackSocket socket = m_listener.Accept();
        const std::lock_guard lock(m_mutex);
        if (m_stopping)
        {
            return;
        }
        if (socket.IsOpen())
        {
            Connection& connection = m_connections.emplace_back();
            connection.socket = std::move(socket);
            connection.thread = std::thread([this, &connection] { Talk(connection); });
        }
    }
}

void FaultServer::Talk(Connection& connection)
{
    const std::string head = ReadHead(connection.socket);
    if (head.empty())
    {
        return;
    }
    for (const Step& step : ScriptFor(head, connection))
    {
        if (!step(*this, connection))
        {
            return;
        }
    }
    connection.socket.Shutdown();
}

FaultServer::Script FaultServer::ScriptFor(const std::string& head, Connection& connection)
{
    const std::lock_guard lock(m_mutex);
    if (head.front() == kTlsHandshake)
    {
        return m_scripts[""];
    }
    m_requests.push_back(head);
    connection.path = PathOf(head);
    m_changed.notify_all();
    const auto script = m_scripts.find(connection.path);
    return script == m_scripts.end() ? Answer("404 Not Found", "no such page") : script->second;
}

} // namespace velmo::test
