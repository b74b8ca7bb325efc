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

#include <algorithm>
#include <array>
#include <stdexcept>
#include <utility>

namespace velmo::test
{
namespace
{

#ifdef _WIN32
using Handle = SOCKET;
using Length = int;
using Count = int;
constexpr int kBoth = SD_BOTH;
constexpr int kSendFlags = 0;

constexpr auto kClose = closesocket;
constexpr auto kControl = ioctlsocket;
using Flag = u_long;
#else
using Handle = int;
using Length = socklen_t;
using Count = std::size_t;
constexpr int kBoth = SHUT_RDWR;
constexpr int kSendFlags = MSG_NOSIGNAL;

constexpr auto kClose = close;
constexpr auto kControl = ioctl;
using Flag = int;
#endif

Handle Native(std::intptr_t handle)
{
    return static_cast<Handle>(handle);
}

std::intptr_t MakeSocket()
{
#ifdef _WIN32
    WSADATA data{};
    [[maybe_unused]] static const int started = WSAStartup(MAKEWORD(2, 2), &data);
#endif
    const auto handle = static_cast<std::intptr_t>(socket(AF_INET, SOCK_STREAM, IPPROTO_TCP));
    if (handle == -1)
    {
        throw std::runtime_error("no socket");
    }
    return handle;
}

sockaddr_in Loopback(int port)
{
    sockaddr_in address{};
    address.sin_family = AF_INET;
    address.sin_addr.s_addr = htonl(INADDR_LOOPBACK);
    address.sin_port = htons(static_cast<std::uint16_t>(port));
    return address;
}

} // namespace

LoopbackSocket::LoopbackSocket(LoopbackSocket&& other) noexcept
    : m_handle(std::exchange(other.m_handle, kNone))
{}

LoopbackSocket& LoopbackSocket::operator=(LoopbackSocket&& other) noexcept
{
    std::swap(m_handle, other.m_handle);
    return *this;
}

LoopbackSocket::~LoopbackSocket()
{
    if (IsOpen())
    {
        kClose(Native(m_handle));
    }
}

LoopbackSocket LoopbackSocket::Listening(int backlog)
{
    LoopbackSocket made(MakeSocket());
    const sockaddr_in address = Loopback(0);
    if (bind(Native(made.m_handle), reinterpret_cast<const sockaddr*>(&address), sizeof address) !=
            0 ||
        listen(Native(made.m_handle), backlog) != 0)
    {
        throw std::runtime_error("cannot listen");
    }
    return made;
}

LoopbackSocket LoopbackSocket::Connecting(int port)
{
    LoopbackSocket made(MakeSocket());
    Flag nonBlocking = 1;
    kControl(Native(made.m_handle), FIONBIO, &nonBlocking);
    const sockaddr_in address = Loopback(port);
    connect(Native(made.m_handle), reinterpret_cast<const sockaddr*>(&address), sizeof address);
    return made;
}

int LoopbackSocket::Port() const
{
    sockaddr_in address{};
    Length size = sizeof address;
    getsockname(Native(m_handle), reinterpret_cast<sockaddr*>(&address), &size);
    return ntohs(address.sin_port);
}

LoopbackSocket LoopbackSocket::Accept() const
{
    return LoopbackSocket(static_cast<std::intptr_t>(accept(Native(m_handle), nullptr, nullptr)));
}

std::string LoopbackSocket::Receive() const
{
    std::string bytes(16384, '\0');
    const auto n = recv(Native(m_handle), bytes.data(), static_cast<Count>(bytes.size()), 0);
    bytes.resize(n > 0 ? static_cast<std::size_t>(n) : 0);
    return bytes;
}

bool LoopbackSocket::Send(std::string_view bytes) const
{
    constexpr std::size_t kMostAtOnce = 1U << 20;
    while (!bytes.empty())
    {
        const auto size = static_cast<Count>(std::min(bytes.size(), kMostAtOnce));
        const auto n = send(Native(m_handle), bytes.data(), size, kSendFlags);
        if (n <= 0)
        {
            return false;
        }
        bytes.remove_prefix(static_cast<std::size_t>(n));
    }
    return true;
}

void LoopbackSocket::Shutdown() const
{
    shutdown(Native(m_handle), kBoth);
}

void LoopbackSocket::Reset()
{
    // A close that may not linger sends a reset.
    const linger none{1, 0};
    setsockopt(Native(m_handle), SOL_SOCKET, SO_LINGER, reinterpret_cast<const char*>(&none),
               sizeof none);
    kClose(Native(std::exchange(m_handle, kNone)));
}

} // namespace velmo::test
