#include "tests/ui/WindowUnderTest.h"

#include "sample/SampleImage.h"

#include <wx/app.h>

#include <utility>

namespace velmo::test
{

WindowDesktop::WindowDesktop() : m_common(desktop.Folder() + "Common")
{
    desktop.Write("Common\\readme.txt", "");
    desktop.SetWinIniFolder("CommonDirectory", m_common);
    desktop.SetPolicy("WebServer", server.Url(""));
}

void WindowDesktop::InstallLoadcalc()
{
    desktop.SetWinIniFolder("LoadcalcDirectory", desktop.Folder());
    desktop.Write("Loadcalc8.exe",
                  sample::WriteSampleImage({"Loadcalc", "Loadcalc", "Loadcalc8.exe", {8, 2, 15}}));
}

void HeldLoop::After(std::chrono::milliseconds delay, std::function<void()> work)
{
    holds ? (void)m_held.emplace(delay, std::move(work))
          : WxMessageLoop::After(delay, std::move(work));
}

void HeldLoop::Fire(std::chrono::milliseconds delay)
{
    std::multimap<std::chrono::milliseconds, std::function<void()>> now;
    while (auto held = m_held.extract(delay))
    {
        now.insert(std::move(held));
    }
    for (const auto& [when, work] : now)
    {
        work();
    }
}

WindowUnderTest::~WindowUnderTest()
{
    if (!IsClosed())
    {
        window->Destroy();
    }
    // Destroyed windows go when the loop is idle.
    loop.Yield();
}

bool WindowUnderTest::IsClosed() const
{
    return !wxTopLevelWindows.Find(window) || window->IsBeingDeleted();
}

} // namespace velmo::test
