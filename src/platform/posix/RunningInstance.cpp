#include "platform/RunningInstance.h"

#include "platform/posix/Descriptor.h"
#include "platform/posix/DesktopPath.h"

#include <fcntl.h>
#include <poll.h>
#include <sys/file.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstring>
#include <filesystem>
#include <functional>
#include <memory>
#include <thread>
#include <utility>

namespace velmo::platform
{
namespace
{

constexpr char kYes = 'y';
constexpr char kNo = 'n';
constexpr int kAnswerTimeoutMs = 5000;

/// An address in the system's own name space, not in the file system: it goes with its process, and
/// a desktop's path may be longer than a socket's may.
struct Address
{
    sockaddr_un name{};
    socklen_t length = 0;
};

Address AddressOf(std::string_view instanceName)
{
    const std::string desktop = std::filesystem::absolute(DesktopRoot()).string();
    const std::string text = std::string(instanceName) + "-" + std::to_string(getuid()) + "-" +
                             std::to_string(std::hash<std::string>()(desktop));
    Address address;
    address.name.sun_family = AF_UNIX;
    const std::size_t n = std::min(text.size(), sizeof address.name.sun_path - 1);
    std::memcpy(address.name.sun_path + 1, text.data(), n);
    address.length = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + 1 + n);
    return address;
}

bool WaitReadable(int descriptor, int timeoutMs)
{
    pollfd waiting{descriptor, POLLIN, 0};
    return poll(&waiting, 1, timeoutMs) > 0;
}

} // namespace

struct RunningInstance::State
{
    std::string name;
    Descriptor lock;
    bool hasPrevious = false;
};

struct InstanceListener::State
{
    Descriptor listener;
    std::array<Descriptor, 2> wakeUp; ///< A byte, or the end, ends the listening thread.
    std::jthread thread;

    void Serve(MessageLoop& loop, const std::function<bool()>& comeForward) const;

    ~State() { wakeUp[1] = Descriptor(); }
};

RunningInstance::RunningInstance(std::string_view name) : m_state(std::make_unique<State>())
{
    m_state->name = name;
    std::error_code ignored;
    std::filesystem::create_directories(DesktopRoot(), ignored);
    const std::filesystem::path path = DesktopRoot() / (m_state->name + ".lock");
    m_state->lock = Descriptor(open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0600));
    // The lock goes with the process, however that ends; the file stays.
    m_state->hasPrevious =
        m_state->lock.Number() >= 0 && flock(m_state->lock.Number(), LOCK_EX | LOCK_NB) != 0;
}

RunningInstance::~RunningInstance() = default;

bool RunningInstance::HasPrevious() const
{
    return m_state->hasPrevious;
}

bool RunningInstance::BringPreviousForward(std::string_view /*caption*/,
                                           std::string_view /*className*/) const
{
    return AskToComeForward(m_state->name);
}

bool AskToComeForward(std::string_view name)
{
    const Descriptor client(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
    const Address address = AddressOf(name);
    char answer = kNo;
    return client.Number() >= 0 &&
           connect(client.Number(), reinterpret_cast<const sockaddr*>(&address.name),
                   address.length) == 0 &&
           WaitReadable(client.Number(), kAnswerTimeoutMs) &&
           read(client.Number(), &answer, 1) == 1 && answer == kYes;
}

InstanceListener::InstanceListener(std::string_view name, MessageLoop& loop,
                                   std::function<bool()> comeForward)
    : m_state(std::make_unique<State>())
{
    std::array<int, 2> ends{};
    const Address address = AddressOf(name);
    m_state->listener = Descriptor(socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
    if (m_state->listener.Number() < 0 ||
        bind(m_state->listener.Number(), reinterpret_cast<const sockaddr*>(&address.name),
             address.length) != 0 ||
        listen(m_state->listener.Number(), 8) != 0 || pipe2(ends.data(), O_CLOEXEC) != 0)
    {
        return;
    }
    m_state->wakeUp = {Descriptor(ends[0]), Descriptor(ends[1])};
    m_state->thread =
        std::jthread([state = m_state.get(), &loop, comeForward = std::move(comeForward)] {
            state->Serve(loop, comeForward);
        });
}

InstanceListener::~InstanceListener() = default;

void InstanceListener::State::Serve(MessageLoop& loop,
                                    const std::function<bool()>& comeForward) const
{
    while (true)
    {
        std::array<pollfd, 2> waiting{pollfd{listener.Number(), POLLIN, 0},
                                      pollfd{wakeUp[0].Number(), POLLIN, 0}};
        const int ready = poll(waiting.data(), waiting.size(), -1);
        if (ready < 0 && errno == EINTR)
        {
            continue;
        }
        if (ready < 0 || waiting[1].revents != 0)
        {
            return;
        }
        // The loop answers when it gets to it; should it end before, the client hears that there is
        // no window.
        const auto client = std::make_shared<const Descriptor>(
            accept4(listener.Number(), nullptr, nullptr, SOCK_CLOEXEC));
        if (client->Number() < 0)
        {
            return; // This process has no more descriptors: later instances find nobody.
        }
        loop.Post([client, comeForward] {
            const char reply = comeForward() ? kYes : kNo;
            (void)!send(client->Number(), &reply, 1, MSG_NOSIGNAL);
        });
    }
}

} // namespace velmo::platform
