#pragma once

#include "tests/support/LoopbackSocket.h"

#include <array>

namespace velmo::test
{

/// A port of 127.0.0.1 where nobody answers, as on a host that is switched off: it listens, but its
/// queue of connections is full, so that attempts hang. (A genuine Windows refuses them instead.)
class DeadPort
{
  public:
    [[nodiscard]] int Number() const { return m_listener.Port(); }

  private:
    LoopbackSocket m_listener = LoopbackSocket::Listening(0);
    std::array<LoopbackSocket, 3> m_queue{LoopbackSocket::Connecting(m_listener.Port()),
                                          LoopbackSocket::Connecting(m_listener.Port()),
                                          LoopbackSocket::Connecting(m_listener.Port())};
};

/// A port of 127.0.0.1 that refuses connections: nobody listens there.
[[nodiscard]] inline int ClosedPort()
{
    return LoopbackSocket::Listening(1).Port();
}

} // namespace velmo::test
