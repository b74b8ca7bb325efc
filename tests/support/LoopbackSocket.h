#pragma once

#include <string>
#include <string_view>
#include <utility>

namespace velmo::test
{

/// A TCP socket on 127.0.0.1, of either system. Movable; closes itself. Shutdown() and Reset() may be
/// called while another thread uses the socket. Making one throws std::runtime_error when it fails.
class LoopbackSocket
{
  public:
    LoopbackSocket() = default;
    LoopbackSocket(LoopbackSocket&& other) noexcept { std::swap(m_handle, other.m_handle); }
    LoopbackSocket& operator=(LoopbackSocket&& other) noexcept
    {
        std::swap(m_handle, other.m_handle);
        return *this;
    }
    ~LoopbackSocket();

    /// Listens on a port that the system chooses.
    [[nodiscard]] static LoopbackSocket Listening(int backlog);
    /// Sets out to connect to a port and does not wait for it.
    [[nodiscard]] static LoopbackSocket Connecting(int port);

    [[nodiscard]] bool IsOpen() const { return m_handle != kNone; }
    [[nodiscard]] int Port() const;

    /// The next connection; not open when there will be none.
    [[nodiscard]] LoopbackSocket Accept() const;
    /// What has come, at least one byte; empty at the connection's end.
    [[nodiscard]] std::string Receive() const;
    /// False when the other side has gone.
    bool Send(std::string_view bytes) const;
    /// Ends both directions in good order and wakes whoever waits for them.
    void Shutdown() const;
    /// Closes with a reset instead of an orderly end.
    void Reset();

  private:
#ifdef _WIN32
    using Handle = unsigned long long;
#else
    using Handle = int;
#endif
    static constexpr auto kNone = static_cast<Handle>(-1);
    explicit LoopbackSocket(Handle handle) : m_handle(handle) {}
    [[nodiscard]] static LoopbackSocket Fresh();

    Handle m_handle = kNone;
};

/// A port of 127.0.0.1 where nobody answers, as on a host that is switched off: it listens, but its
/// queue of connections is full, so that attempts hang. (A genuine Windows refuses them instead.)
class DeadPort
{
  public:
    [[nodiscard]] int Number() const { return m_listener.Port(); }

  private:
    LoopbackSocket m_listener = LoopbackSocket::Listening(0);
    LoopbackSocket m_queue[3]{LoopbackSocket::Connecting(Number()),
                              LoopbackSocket::Connecting(Number()),
                              LoopbackSocket::Connecting(Number())};
};

/// A port of 127.0.0.1 that refuses connections: nobody listens there.
[[nodiscard]] inline int ClosedPort()
{
    return LoopbackSocket::Listening(1).Port();
}

} // namespace velmo::test
