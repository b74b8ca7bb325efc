#include "ui/WxMessageLoop.h"

#include <wx/app.h>
#include <wx/evtloop.h>
#include <wx/timer.h>

#include <utility>

namespace velmo
{
namespace
{

/// Handles at most this many events in one go, so that a flood of them cannot hold up the caller.
constexpr int kMostEventsAtOnce = 200;

class OneShot final : public wxTimer
{
  public:
    explicit OneShot(std::function<void()> work) : m_work(std::move(work)) {}

    void Notify() override
    {
        // Moved out first: the work may run for long, and the timer may go meanwhile.
        const std::function<void()> work = std::move(m_work);
        work();
    }

  private:
    std::function<void()> m_work;
};

} // namespace

WxMessageLoop::WxMessageLoop() = default;
WxMessageLoop::~WxMessageLoop() = default;

void WxMessageLoop::Post(std::function<void()> work)
{
    wxTheApp->CallAfter(std::move(work));
}

void WxMessageLoop::Yield()
{
    const wxEventLoopGuarantor needsALoop;
    wxEventLoopBase* loop = wxEventLoopBase::GetActive();
    wxTheApp->ProcessPendingEvents();
    for (int i = 0; i < kMostEventsAtOnce && loop->Pending(); ++i)
    {
        loop->Dispatch();
    }
    wxTheApp->ProcessPendingEvents();
    loop->ProcessIdle();
}

void WxMessageLoop::WaitAndYield(std::chrono::milliseconds longest)
{
    {
        const wxEventLoopGuarantor needsALoop;
        wxTheApp->ProcessPendingEvents();
        wxEventLoopBase::GetActive()->DispatchTimeout(static_cast<unsigned long>(longest.count()));
    }
    Yield();
}

void WxMessageLoop::After(std::chrono::milliseconds delay, std::function<void()> work)
{
    m_timers.remove_if([](const auto& timer) { return !timer->IsRunning(); });
    m_timers.push_back(std::make_unique<OneShot>(std::move(work)));
    m_timers.back()->StartOnce(static_cast<int>(delay.count()));
}

} // namespace velmo
