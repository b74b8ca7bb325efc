#include "tests/support/LoopbackSocket.h"

#ifdef _WIN32
#include <winsock2.h>
#else
#include <arpa/inet.h>
#include <netinet/in.h>
#include <sys/ioctl.h>
#include <sys/socket.h>
#include <unistd.h>
#endif

#include <stdexcept>
#include <utility>

namespace velmo::test
{
namespace
{

// The two systems' names and types for the same things.
#ifdef _WIN32
using Count = int;
using Flag = u_long;
using socklen_t = int;
constexpr int SHUT_RDWR = SD_BOTH;
constexpr int MSG_NOSIGNAL = 0;
constexpr auto close = closesocket;
constexpr auto ioctl = ioctlsocket;
#else
using Count = std::size_t;
using Flag = int;
#endif

sockaddr_in Loopback(int port)
{
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    address.sin_port = htons(static_cast<std::uint16_t>(port));
    return address;
}

} // namespace

LoopbackSocket::~LoopbackSocket()
{
    if (IsOpen())
    {
        close(m_handle);
    }
}

LoopbackSocket LoopbackSocket::Fresh()
{
#ifdef _WIN32
    WSADATA data{};
    [[maybe_unused]] static const int started = WSAStartup(MAKEWORD(2, 2), &data);
#endif
    LoopbackSocket made(socket(AF_INET, SOCK_STREAM, IPPROTO_TCP));
    return made.IsOpen() ? std::move(made) : throw std::runtime_error("no socket");
}

LoopbackSocket LoopbackSocket::Listening(int backlog)
{
    LoopbackSocket made = Fresh();
    const sockaddr_in address = Loopback(0);
    if (bind(made.m_handle, reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0 ||
        listen(made.m_handle, backlog) != 0)
    {
        throw std::runtime_error("cannot listen");
    }
    return made;
}

LoopbackSocket LoopbackSocket::Connecting(int port)
{
    LoopbackSocket made = Fresh();
    Flag nonBlocking = 1;
    ioctl(made.m_handle, FIONBIO, &nonBlocking);
    const sockaddr_in address = Loopback(port);
    connect(made.m_handle, reinterpret_cast<const sockaddr*>(&address), sizeof address);
    return made;
}

int LoopbackSocket::Port() const
{
    sockaddr_in address{};
    socklen_t size = sizeof address;
    getsockname(m_handle, reinterpret_cast<sockaddr*>(&address), &size);
    return ntohs(address.sin_port);
}

LoopbackSocket LoopbackSocket::Accept() const
{
    return LoopbackSocket(accept(m_handle, nullptr, nullptr));
}

std::string LoopbackSocket::Receive() const
{
    std::string bytes(16384, '\0');
    const auto n = recv(m_handle, bytes.data(), static_cast<Count>(bytes.size()), 0);
    bytes.resize(n > 0 ? static_cast<std::size_t>(n) : 0);
    return bytes;
}

bool LoopbackSocket::Send(std::string_view bytes) const
{
    // It blocks until all is taken, or the other side has gone.
    const auto size = static_cast<Count>(bytes.size());
    return std::cmp_equal(send(m_handle, bytes.data(), size, MSG_NOSIGNAL), size);
}

void LoopbackSocket::Shutdown() const
{
    shutdown(m_handle, SHUT_RDWR);
}

void LoopbackSocket::Reset()
{
    // A close that may not linger sends a reset.
    const linger none{1, 0};
    setsockopt(m_handle, SOL_SOCKET, SO_LINGER, reinterpret_cast<const char*>(&none), sizeof none);
    close(std::exchange(m_handle, kNone));
}

} // namespace velmo::test
