#include "tests/support/FaultServer.h"

#include <algorithm>
#include <chrono>
#include <sstream>
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
    return head.substr(start, head.find_first_of(" ?\r", start) - start);
}

/// The head of an answer, with one line of its own; a number is the length that it announces.
std::string HeadText(std::string_view statusLine, const std::string& line)
{
    return "HTTP/1.1 " + std::string(statusLine) + "\r\n" + line + "\r\nConnection: close\r\n\r\n";
}

std::string HeadText(std::string_view statusLine, std::uint64_t length)
{
    return HeadText(statusLine, "Content-Length: " + std::to_string(length));
}

std::string ReadHead(const LoopbackSocket& socket)
{
    std::string head = socket.Receive();
    for (std::string more = head; !more.empty() && head.front() != kTlsHandshake &&
                                  head.find("\r\n\r\n") == std::string::npos;)
    {
        head += more = socket.Receive();
    }
    return head;
}

} // namespace

FaultServer::~FaultServer()
{
    {
        const std::lock_guard lock(m_mutex);
        m_stopping = true;
        for (const Connection& connection : m_connections)
        {
            connection.socket.Shutdown();
        }
    }
    m_changed.notify_all();
    // One connection more wakes the acceptor on every system.
    const LoopbackSocket last = LoopbackSocket::Connecting(m_port);
    m_acceptor.join();
}

void FaultServer::Play(const std::string& path, Script script)
{
    const std::lock_guard lock(m_mutex);
    m_scripts[path] = std::move(script);
}

void FaultServer::Release(const std::string& path)
{
    const std::lock_guard lock(m_mutex);
    m_released[path] = true;
    m_changed.notify_all();
}

void FaultServer::AwaitRequest(const std::string& path, int times)
{
    std::unique_lock lock(m_mutex);
    m_changed.wait(lock, [&] { return std::ranges::count(m_requests, path, PathOf) >= times; });
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

FaultServer::Step FaultServer::Head(std::uint64_t length)
{
    return Send(HeadText("200 OK", length));
}

FaultServer::Script FaultServer::Answer(std::string_view statusLine, std::string_view content)
{
    return {Send(HeadText(statusLine, content.size()).append(content))};
}

FaultServer::Script FaultServer::Redirect(std::string_view location)
{
    return {Send(HeadText("302 Found", "Content-Length: 0\r\nLocation: " + std::string(location)))};
}

FaultServer::Script FaultServer::Chunked(std::string_view content, bool finish)
{
    std::ostringstream chunk;
    chunk << std::hex << content.size() << "\r\n" << content << (finish ? "\r\n0\r\n\r\n" : "");
    return {Send(HeadText("200 OK", "Transfer-Encoding: chunked") + chunk.str())};
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
            connection.thread = std::jthread([this, &connection] { Talk(connection); });
        }
    }
}

void FaultServer::Talk(Connection& connection)
{
    const std::string head = ReadHead(connection.socket);
    const Script script = head.empty() ? Script() : ScriptFor(head, connection);
    if (std::ranges::all_of(script, [&](const Step& step) { return Do(step, connection); }))
    {
        connection.socket.Shutdown();
    }
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

/// False when that has broken the connection off.
bool FaultServer::Do(const Step& step, Connection& connection)
{
    if (step.kind == Step::Kind::Send)
    {
        std::uint64_t sent = 0;
        while (sent < step.times && connection.socket.Send(step.bytes))
        {
            ++sent;
        }
        return sent == step.times;
    }
    std::unique_lock lock(m_mutex);
    const auto stopping = [this] { return m_stopping; };
    switch (step.kind)
    {
    case Step::Kind::Drip:
        return std::ranges::all_of(step.bytes, [&](char byte) {
            return !m_changed.wait_for(lock, kDripPause, stopping) &&
                   connection.socket.Send({&byte, 1});
        });
    case Step::Kind::Hold:
        m_changed.wait(lock, [&] { return m_stopping || m_released[connection.path]; });
        return !m_stopping;
    default:
        connection.socket.Reset();
        return false;
    }
}

} // namespace velmo::test
