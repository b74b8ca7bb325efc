#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace velmo::test
{

/**
    A TCP socket on 127.0.0.1, of either system. Movable; closes itself. Shutdown() and Reset() may be
    called while another thread uses the socket. Making one throws std::runtime_error when it fails.
 */
class LoopbackSocket
{
  public:
    LoopbackSocket() = default;
    LoopbackSocket(LoopbackSocket&& other) noexcept;
    LoopbackSocket& operator=(LoopbackSocket&& other) noexcept;
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
    static constexpr std::intptr_t kNone = -1;
    explicit LoopbackSocket(std::intptr_t handle) : m_handle(handle) {}

    std::intptr_t m_handle = kNone;
};

} // namespace velmo::test
