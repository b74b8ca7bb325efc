#pragma once

#include "app/UpdateWindows.h"
#include "app/frmMain.h"
#include "manager/UpdateManager.h"
#include "platform/PrivateProfile.h"
#include "sample/SampleImage.h"
#include "tests/support/FaultServer.h"
#include "tests/support/RecordedPrompts.h"
#include "tests/support/TemporaryDesktop.h"
#include "tests/ui/Person.h"
#include "ui/WxMessageLoop.h"
#include "ui/WxMousePointer.h"

#include <wx/button.h>
#include <wx/frame.h>

#include <chrono>
#include <functional>
#include <map>
#include <string>
#include <vector>

namespace velmo::test
{

/// Starts a fetch only when asked to.
inline constexpr char kNoAutoConnect[] = "[Miscellaneous]\r\nAutoConnect=0 'False\r\n";

/// A desktop with a common folder, and a vendor's server that the machine's policy points to.
class WindowDesktop
{
  public:
    WindowDesktop()
    {
        WriteSettings("");
        desktop.SetWinIniFolder("CommonDirectory", m_common);
        desktop.SetPolicy("WebServer", server.Url(""));
    }

    /// Serves a version list with this text, and a manufacturer list.
    void ServeLists(std::string_view versionList, std::string_view manufacturers = "")
    {
        server.Serve("/pub/demo/version.ini", versionList);
        server.Serve("/pub/demo/manufver.ini", manufacturers);
    }

    /// Installs Loadcalc 8.02.15.
    void InstallLoadcalc()
    {
        desktop.SetWinIniFolder("LoadcalcDirectory", desktop.Folder());
        desktop.Write("Loadcalc8.exe", sample::WriteSampleImage(
                                           {"Loadcalc", "Loadcalc", "Loadcalc8.exe", {8, 2, 15}}));
    }

    /// A value of the settings file; "(none)" when it is not there.
    [[nodiscard]] std::string Setting(std::string_view section, std::string_view key) const
    {
        return platform::GetPrivateProfileText(section, key, "(none)", 256,
                                               m_common + "\\VelmoUpd.ini");
    }
    void WriteSettings(std::string_view text) const { desktop.Write("Common\\VelmoUpd.ini", text); }

    /// How often the version list was asked for.
    [[nodiscard]] int Fetches() const { return server.CountOf("/pub/demo/version.ini"); }

    FaultServer server;
    TemporaryDesktop desktop;

  private:
    std::string m_common = desktop.Folder() + "Common";
};

/// A loop whose timers wait until the test lets them fire.
class HeldLoop final : public WxMessageLoop
{
  public:
    void After(std::chrono::milliseconds delay, std::function<void()> work) override
    {
        holds ? (void)m_held.emplace(delay, std::move(work))
              : WxMessageLoop::After(delay, std::move(work));
    }

    /// Timers of that delay which wait.
    [[nodiscard]] std::size_t Waiting(std::chrono::milliseconds delay) const
    {
        return m_held.count(delay);
    }

    /// Lets those that wait now fire.
    void Fire(std::chrono::milliseconds delay)
    {
        std::vector<std::function<void()>> now;
        while (auto held = m_held.extract(delay))
        {
            now.push_back(std::move(held.mapped()));
        }
        for (const auto& work : now)
        {
            work();
        }
    }

    bool holds = true; ///< False: they fire by themselves.

  private:
    std::multimap<std::chrono::milliseconds, std::function<void()>> m_held;
};

/// After opening, and before the page of a newly selected program is loaded.
inline constexpr std::chrono::milliseconds kOpeningTimer(1000);
inline constexpr std::chrono::milliseconds kPageTimer(300);

/// The real main window over the real manager, loaded but not opened.
class WindowUnderTest
{
  public:
    WindowUnderTest() = default;
    ~WindowUnderTest()
    {
        if (!IsClosed())
        {
            window->Destroy();
        }
        loop.Yield(); // Destroyed windows go when the loop is idle.
    }

    /// Opens the window and fetches the lists.
    void OpenAndFetch()
    {
        window->Open("");
        manager.FetchLists();
    }

    /// As the function of that name.
    void WaitFor(const char* what, const std::function<bool()>& done)
    {
        test::WaitFor(loop, what, done);
    }

    /// The window's control of that name.
    template <typename Control>
    Control& Find(const char* name)
    {
        return test::Find<Control>(*window, name);
    }

    /// Presses a button as its click does.
    void Press(const char* name) { test::Press(*window, name); }

    [[nodiscard]] bool IsClosed() const
    {
        return !wxTopLevelWindows.Find(window) || window->IsBeingDeleted();
    }

    HeldLoop loop;
    RecordedPrompts prompts;
    WxMousePointer pointer;
    std::vector<std::string> opened; ///< Addresses that went to the user's browser.
    UpdateManager manager{loop, prompts, pointer, [this](const std::string& address) {
                              opened.push_back(address);
                              return Done{};
                          }};
    UpdateWindows windows{manager, prompts, pointer};
    frmMain* window = new frmMain(manager, windows, loop); // The toolkit deletes it.
};

} // namespace velmo::test
