#include "tests/ui/WindowUnderTest.h"

#include "platform/MFile.h"
#include "platform/PrivateProfile.h"

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

bool WindowUnderTest::IsClosed() const
{
    return !wxTopLevelWindows.Find(window) || window->IsBeingDeleted();
}

} // namespace velmo::test
