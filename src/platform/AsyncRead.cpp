#include "platform/AsyncRead.h"

#include "platform/ErrorCode.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <utility>

namespace velmo::platform
{
namespace
{

constexpr std::uint32_t kTicksBetweenProgress = 50;

} // namespace

/// What the worker and the notices on their way through the loop hold.
struct AsyncRead::State
{
    State(std::size_t most, Listener& l, TickSource t)
        : bytes(std::make_shared<ByteStore>(most)), listener(&l), ticks(std::move(t)),
          lastProgress(ticks() - kTicksBetweenProgress)
    {}

    std::shared_ptr<ByteStore> bytes;
    std::atomic<std::size_t> count{0};
    std::atomic<bool> progressOnItsWay{false};
    Listener* listener; ///< For the loop's thread. Null once the read object has gone.
    TickSource ticks;
    std::uint32_t lastProgress; ///< For the worker.

    /// Puts what arrives into the store and tells the loop now and then.
    static Result<Done> Take(const std::shared_ptr<State>& state, MessageLoop& loop,
                             std::span<const std::byte> arrived)
    {
        if (!state->bytes->Add(arrived))
        {
            return Error{error_code::kOutOfMemory, "There is not enough memory for the file."};
        }
        state->count += arrived.size();
        const std::uint32_t now = state->ticks();
        // A loop that is busy elsewhere gets one notice of where things stand, not a queue of them.
        if (now - state->lastProgress >= kTicksBetweenProgress &&
            !state->progressOnItsWay.exchange(true))
        {
            state->lastProgress = now;
            loop.Post([state] {
                state->progressOnItsWay = false;
                if (state->listener != nullptr)
                {
                    state->listener->ReadProgress(state->count);
                }
            });
        }
        return Done{};
    }
};

std::uint32_t SteadyTicks()
{
    const auto now = std::chrono::steady_clock::now().time_since_epoch();
    return static_cast<std::uint32_t>(
        std::chrono::duration_cast<std::chrono::milliseconds>(now).count());
}

AsyncRead::AsyncRead(MessageLoop& loop, std::string url, const HttpLimits& limits,
                     Listener& listener, TickSource ticks)
{
    HttpLimits capped = limits;
    capped.mostBytes = std::min(limits.mostBytes, kMostBytes);
    m_state = std::make_shared<State>(static_cast<std::size_t>(capped.mostBytes), listener,
                                      std::move(ticks));
    m_worker = std::jthread(
        [&loop, url = std::move(url), capped, state = m_state](const std::stop_token& stop) {
            const auto take = [&](auto bytes) { return State::Take(state, loop, bytes); };
            loop.Post([state, outcome = HttpGet(url, capped, take, stop)] {
                if (state->listener != nullptr)
                {
                    state->listener->ReadComplete(state->count, outcome);
                }
            });
        });
}

AsyncRead::~AsyncRead()
{
    m_state->listener = nullptr;
}

void AsyncRead::Cancel()
{
    m_worker.request_stop();
}

std::shared_ptr<const ByteStore> AsyncRead::Bytes() const
{
    return m_state->bytes;
}

} // namespace velmo::platform
