#include "tests/ui/WindowUnderTest.h"

#include "platform/MFile.h"
#include "platform/PrivateProfile.h"

#include <gtest/gtest.h>

#include <wx/app.h>

#include <chrono>
#include <stdexcept>

namespace velmo::test
{

WindowDesktop::WindowDesktop() : m_common(desktop.Folder() + "Common")
{
    desktop.Write("Common\\readme.txt", "");
    desktop.SetWinIniFolder("CommonDirectory", m_common);
    desktop.SetPolicy("WebServer", server.Url(""));
}

void WindowDesktop::ServeLists(std::string_view versionList)
{
    server.Serve("/pub/demo/version.ini", versionList);
    server.Serve("/pub/demo/manufver.ini", "");
}

std::string WindowDesktop::Setting(std::string_view section, std::string_view key) const
{
    return platform::GetPrivateProfileText(section, key, "(none)", 256, SettingsPath());
}

void WindowDesktop::WriteSettings(std::string_view text) const
{
    desktop.Write("Common\\VelmoUpd.ini", text);
}

WindowUnderTest::WindowUnderTest()
    : manager(loop, prompts, pointer,
              [this](const std::string& address) -> Result<Done> {
                  opened.push_back(address);
                  return Done{};
              }),
      windows(manager, prompts, pointer), window(new frmMain(manager, windows, loop))
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

bool WindowUnderTest::IsClosed() const
{
    return !wxTopLevelWindows.Find(window) || window->IsBeingDeleted();
}

void WindowUnderTest::Wait(const char* what, const std::function<bool()>& done)
{
    const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    while (!done())
    {
        if (std::chrono::steady_clock::now() > end)
        {
            throw std::runtime_error(std::string("did not happen: ") + what);
        }
        loop.WaitAndYield(std::chrono::milliseconds(20));
    }
}

wxWindow* WindowUnderTest::FindWindow(const char* name)
{
    wxWindow* found = wxWindow::FindWindowByName(name, window);
    if (found == nullptr)
    {
        throw std::runtime_error(std::string("no control ") + name);
    }
    return found;
}

void WindowUnderTest::Press(const char* name)
{
    auto& button = Find<wxButton>(name);
    ASSERT_TRUE(button.IsEnabled()) << name;
    wxCommandEvent click(wxEVT_BUTTON, button.GetId());
    click.SetEventObject(&button);
    button.GetEventHandler()->ProcessEvent(click);
}

} // namespace velmo::test
