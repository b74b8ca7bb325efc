#pragma once

#include "platform/MessageLoop.h"

#include <list>
#include <memory>

class wxTimer;

namespace velmo
{

/// The toolkit's message loop. Exists from the toolkit's start to its end.
class WxMessageLoop : public platform::MessageLoop
{
  public:
    WxMessageLoop();
    ~WxMessageLoop() override;

    void Post(std::function<void()> work) override;
    void Yield() override;
    void WaitAndYield(std::chrono::milliseconds longest) override;
    void After(std::chrono::milliseconds delay, std::function<void()> work) override;

  private:
    std::list<std::unique_ptr<wxTimer>> m_timers;
};

} // namespace velmo
