#include "install/SetupWatch.h"

#include "platform/MessageLoop.h"

#include <algorithm>
#include <utility>

namespace velmo
{
namespace
{

using Clock = std::chrono::steady_clock;

constexpr std::chrono::milliseconds kBetweenLooks{100};

bool IsRunning(const platform::StartedProgram& setup)
{
    return setup.IsRunning();
}

} // namespace

struct SetupWatch::Round
{
    SetupWatch* watch; ///< Null once the round has been replaced or stopped.
    Clock::time_point until;
};

SetupWatch::SetupWatch(platform::MessageLoop& loop, std::function<void()> ended,
                       std::chrono::milliseconds longest)
    : m_loop(loop), m_ended(std::move(ended)), m_longest(longest)
{}

SetupWatch::~SetupWatch()
{
    Stop();
}

void SetupWatch::Watch(const std::vector<platform::StartedProgram>& setups)
{
    Stop();
    std::erase_if(m_setups, std::not_fn(IsRunning));
    m_setups.insert(m_setups.end(), setups.begin(), setups.end());
    m_round = std::make_shared<Round>(Round{this, Clock::now() + m_longest});
    m_loop.Post([round = m_round] { Look(round); });
}

void SetupWatch::Stop()
{
    if (m_round)
    {
        m_round->watch = nullptr;
        m_round.reset();
    }
}

void SetupWatch::Look(const std::shared_ptr<Round>& round)
{
    SetupWatch* watch = round->watch;
    if (watch == nullptr)
    {
        return;
    }
    if (Clock::now() < round->until && std::ranges::any_of(watch->m_setups, IsRunning))
    {
        watch->m_loop.After(kBetweenLooks, [round] { Look(round); });
        return;
    }
    watch->Stop();
    watch->m_ended();
}

} // namespace velmo
