#pragma once

#include "app/UpdateWindows.h"
#include "app/frmMain.h"
#include "manager/UpdateManager.h"
#include "tests/support/FaultServer.h"
#include "tests/support/RecordedPrompts.h"
#include "tests/support/TemporaryDesktop.h"
#include "tests/ui/Person.h"
#include "ui/WxMessageLoop.h"
#include "ui/WxMousePointer.h"

#include <wx/button.h>
#include <wx/frame.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace velmo::test
{

/// A desktop with a common folder, and a vendor's server that the machine's policy points to.
class WindowDesktop
{
  public:
    WindowDesktop();

    /// Serves a version list with this text, and an empty manufacturer list.
    void ServeLists(std::string_view versionList);

    [[nodiscard]] std::string SettingsPath() const { return m_common + "\\VelmoUpd.ini"; }
    /// A value of the settings file; "(none)" when it is not there.
    [[nodiscard]] std::string Setting(std::string_view section, std::string_view key) const;
    void WriteSettings(std::string_view text) const;

    FaultServer server;
    TemporaryDesktop desktop;

  private:
    std::string m_common;
};

/// The real main window over the real manager, loaded but not opened.
class WindowUnderTest
{
  public:
    WindowUnderTest();
    /// With a shell that opens addresses itself.
    explicit WindowUnderTest(AddressOpener::Shell shell);
    ~WindowUnderTest();

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

    [[nodiscard]] bool IsClosed() const;

    WxMessageLoop loop;
    RecordedPrompts prompts;
    WxMousePointer pointer;
    std::vector<std::string> opened; ///< Addresses that went to the user's browser.
    UpdateManager manager;
    UpdateWindows windows;
    frmMain* window;
};

} // namespace velmo::test
