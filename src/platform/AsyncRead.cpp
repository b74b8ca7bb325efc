#include "platform/AsyncRead.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <utility>

namespace velmo::platform
{
namespace
{

using Clock = std::chrono::steady_clock;

constexpr std::chrono::milliseconds kBetweenProgress{50};
constexpr std::int32_t kOutOfMemory = 8;

} // namespace

/// What the worker and the notices on their way through the loop hold.
struct AsyncRead::State
{
    State(std::size_t most, Listener& l) : bytes(std::make_shared<ByteStore>(most)), listener(&l) {}

    std::shared_ptr<ByteStore> bytes;
    std::atomic<std::size_t> count{0};
    std::atomic<bool> progressOnItsWay{false};
    Listener* listener; ///< For the loop's thread. Null once the read object has gone.
};

namespace
{

/// Puts what arrives into the state and tells the loop now and then.
template <typename State>
class StoringSink final : public ByteSink
{
  public:
    StoringSink(MessageLoop& loop, std::shared_ptr<State> state)
        : m_loop(loop), m_state(std::move(state))
    {}

    // The store is ready for any length, so an announced one needs no preparation.
    void Expect(std::uint64_t) override {}

    Result<Done> Add(std::span<const std::byte> bytes) override
    {
        if (!m_state->bytes->Add(bytes))
        {
            return Error{kOutOfMemory, "There is not enough memory for the file."};
        }
        m_state->count += bytes.size();
        const Clock::time_point now = Clock::now();
        // A loop that is busy elsewhere gets one notice of where things stand, not a queue of them.
        if (now >= m_nextProgress && !m_state->progressOnItsWay.exchange(true))
        {
            m_nextProgress = now + kBetweenProgress;
            m_loop.Post([state = m_state] {
                state->progressOnItsWay = false;
                if (state->listener != nullptr)
                {
                    state->listener->ReadProgress(state->count);
                }
            });
        }
        return Done{};
    }

  private:
    MessageLoop& m_loop;
    std::shared_ptr<State> m_state;
    Clock::time_point m_nextProgress = Clock::now();
};

} // namespace

AsyncRead::AsyncRead(MessageLoop& loop, std::string url, const HttpLimits& limits,
                     Listener& listener)
{
    HttpLimits capped = limits;
    capped.mostBytes = std::min(limits.mostBytes, kMostBytes);
    m_state = std::make_shared<State>(static_cast<std::size_t>(capped.mostBytes), listener);
    m_worker = std::jthread(
        [&loop, url = std::move(url), capped, state = m_state](const std::stop_token& stop) {
            StoringSink<State> sink(loop, state);
            loop.Post([state, outcome = HttpGet(url, capped, sink, stop)] {
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
