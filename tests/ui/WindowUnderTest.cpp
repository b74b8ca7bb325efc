#include "tests/ui/WindowUnderTest.h"

#include "platform/PrivateProfile.h"
#include "sample/SampleImage.h"

#include <wx/app.h>

#include <algorithm>
#include <utility>

namespace velmo::test
{

WindowDesktop::WindowDesktop() : m_common(desktop.Folder() + "Common")
{
    desktop.Write("Common\\readme.txt", "");
    desktop.SetWinIniFolder("CommonDirectory", m_common);
    desktop.SetPolicy("WebServer", server.Url(""));
}

void WindowDesktop::ServeLists(std::string_view versionList, std::string_view manufacturers)
{
    server.Serve("/pub/demo/version.ini", versionList);
    server.Serve("/pub/demo/manufver.ini", manufacturers);
}

void WindowDesktop::InstallLoadcalc()
{
    desktop.SetWinIniFolder("LoadcalcDirectory", desktop.Folder());
    desktop.Write("Loadcalc8.exe",
                  sample::WriteSampleImage({"Loadcalc", "Loadcalc", "Loadcalc8.exe", {8, 2, 15}}));
}

int WindowDesktop::Fetches() const
{
    return static_cast<int>(server.CountOf("/pub/demo/version.ini"));
}

std::string WindowDesktop::Setting(std::string_view section, std::string_view key) const
{
    return platform::GetPrivateProfileText(section, key, "(none)", 256, SettingsPath());
}

void WindowDesktop::WriteSettings(std::string_view text) const
{
    desktop.Write("Common\\VelmoUpd.ini", text);
}

void HeldLoop::After(std::chrono::milliseconds delay, std::function<void()> work)
{
    if (holds)
    {
        m_held.emplace_back(delay, std::move(work));
        return;
    }
    WxMessageLoop::After(delay, std::move(work));
}

std::size_t HeldLoop::Waiting(std::chrono::milliseconds delay) const
{
    return static_cast<std::size_t>(std::ranges::count(
        m_held, delay, &std::pair<std::chrono::milliseconds, std::function<void()>>::first));
}

void HeldLoop::Fire(std::chrono::milliseconds delay)
{
    for (auto& [held, work] : std::exchange(m_held, {}))
    {
        if (held == delay)
        {
            work();
        }
        else
        {
            m_held.emplace_back(held, std::move(work));
        }
    }
}

WindowUnderTest::WindowUnderTest()
    : WindowUnderTest([this](const std::string& address) -> Result<Done> {
          opened.push_back(address);
          return Done{};
      })
{}

WindowUnderTest::WindowUnderTest(AddressOpener::Shell shell)
    : manager(loop, prompts, pointer, std::move(shell)), windows(manager, prompts, pointer),
      window(new frmMain(manager, windows, loop))
{}

WindowUnderTest::~WindowUnderTest()
{
    if (!IsClosed())
    {
        window->Destroy();
    }
    // Destroyed windows go when the loop is idle.
    loop.Yield();
}

void WindowUnderTest::OpenAndFetch()
{
    window->Open("");
    manager.FetchLists();
}

bool WindowUnderTest::IsClosed() const
{
    return !wxTopLevelWindows.Find(window) || window->IsBeingDeleted();
}

} // namespace velmo::test
