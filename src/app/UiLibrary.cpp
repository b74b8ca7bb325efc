#include "app/BuildInformation.h"
#include "app/CCheckOtherInstance.h"
#include "app/UiRequest.h"
#include "app/UpdateWindows.h"
#include "app/VelmoUpdUi_export.h"
#include "app/frmMain.h"
#include "catalogue/CommonFolder.h"
#include "controls/MousePointer.h"
#include "manager/RunGuarded.h"
#include "ui/ToolkitResources.h"
#include "ui/WxLog.h"
#include "ui/WxMessageLoop.h"
#include "ui/WxMousePointer.h"
#include "ui/WxPrompts.h"
#include "ui/WxText.h"

#include <wx/app.h>
#include <wx/apptrait.h>
#include <wx/weakref.h>

#include <memory>
#include <string>
#include <vector>

namespace velmo
{
namespace
{

constexpr int kFailed = 1;

/// The toolkit's, but for where it logs.
class Traits final : public wxGUIAppTraits
{
  public:
    wxLog* CreateLogTarget() override { return new WxLog(LogFilePath()); }
};

/// Lives while the toolkit does; builds the program in its order and hands the parts over.
class Application final : public wxApp
{
  public:
    explicit Application(const UiRequest& request)
        : m_request(request), m_startup(request.commandLine)
    {}

    bool OnInit() override
    {
        SetAppDisplayName(ToWx(kMainWindowCaption));
        m_loop = std::make_unique<WxMessageLoop>();
        m_manager = std::make_unique<UpdateManager>(*m_loop, m_prompts, m_pointer);
        m_windows = std::make_unique<UpdateWindows>(*m_manager, m_prompts, m_pointer);
        m_manager->MarkCaller(m_startup);
        m_listeners.push_back(ListenerOf(kSilentInstanceName));
        // An open message does not hold up the end of the session; a running fetch may.
        Bind(wxEVT_QUERY_END_SESSION, [this](wxCloseEvent& event) {
            if (event.CanVeto() && m_manager->Lists().Busy())
            {
                event.Veto();
            }
        });
        Bind(wxEVT_END_SESSION, [this](wxCloseEvent& event) {
            if (m_window != nullptr)
            {
                m_window->SaveState();
            }
            event.Skip();
        });
        return true;
    }

    int OnRun() override
    {
        const int exitCode = Show();
        return m_hasFailed ? kFailed : exitCode;
    }

    /// Nothing that an event's handler throws may cross the window system.
    bool OnExceptionInMainLoop() override
    {
        OnUnhandledException();
        return false;
    }

    void OnUnhandledException() override
    {
        m_hasFailed = true;
        (void)RunGuarded([]() -> int { throw; }, kFailed);
    }

    /// The command line is searched, not parsed: the toolkit must not look for options in it.
    void OnInitCmdLine(wxCmdLineParser& /*parser*/) override {}
    bool OnCmdLineParsed(wxCmdLineParser& /*parser*/) override { return true; }

    int OnExit() override
    {
        m_listeners.clear();
        m_windows.reset();
        m_manager.reset();
        m_loop.reset();
        return wxApp::OnExit();
    }

  protected:
    wxAppTraits* CreateTraits() override { return new Traits; }

  private:
    int Show()
    {
        if (m_request.subject == UiSubject::MainWindow)
        {
            LoadMainWindow()->Open(m_request.commandLine);
            return wxApp::OnRun();
        }
        ShowStatusLines();
        m_manager->Lists().Take(m_request.Lists(), m_request.Report());
        const auto tab = m_manager->TellCaller(m_request.Findings(), m_startup, *m_windows);
        if (!tab)
        {
            return 0;
        }
        LoadMainWindow()->OpenOnUpdates(m_startup.caller, *tab == MainTab::Equipment);
        return wxApp::OnRun();
    }

    frmMain* LoadMainWindow()
    {
        const CHourGlass busy(m_pointer);
        auto* window = new frmMain(*m_manager, *m_windows, *m_loop);
        SetTopWindow(window);
        m_window = window;
        m_listeners.push_back(ListenerOf(kInstanceName));
        return window;
    }

    std::unique_ptr<platform::InstanceListener> ListenerOf(std::string_view name)
    {
        return std::make_unique<platform::InstanceListener>(name, *m_loop,
                                                            [this] { return ComeForward(); });
    }

    /// The main window, or the question that waits before there is one.
    bool ComeForward() const
    {
        if (m_window != nullptr)
        {
            return m_window->ComeForward();
        }
        for (wxWindow* window : wxTopLevelWindows)
        {
            if (window->IsShown())
            {
                window->Raise();
                return true;
            }
        }
        return false;
    }

    /// What the silent fetch wrote, for the main window's status box.
    void ShowStatusLines()
    {
        std::string_view lines(m_request.statusLines);
        if (lines.ends_with("\r\n"))
        {
            lines.remove_suffix(2);
        }
        m_manager->StatusBox().AddLine(lines);
    }

    const UiRequest& m_request;
    StartupRequest m_startup;
    WxMousePointer m_pointer;
    WxPrompts m_prompts;
    std::unique_ptr<WxMessageLoop> m_loop;
    std::unique_ptr<UpdateManager> m_manager;
    std::unique_ptr<UpdateWindows> m_windows;
    wxWeakRef<frmMain> m_window;
    std::vector<std::unique_ptr<platform::InstanceListener>> m_listeners;
    bool m_hasFailed = false;
};

} // namespace
} // namespace velmo

extern "C" VELMOUPDUI_EXPORT int VelmoShowUi(const velmo::UiRequest* request)
{
    if (std::string_view(request->build) != velmo::kOwnInformation.versionText)
    {
        return velmo::kOtherBuild;
    }
    velmo::TakeToolkitResourcesFrom(request->module);
    // The toolkit gets the program's name only: the rest of the command line is not for it.
    std::string name = "VelmoUpd";
    int argc = 1;
    char* argv[] = {name.data(), nullptr};
    wxApp::SetInstance(new velmo::Application(*request));
    return velmo::RunGuarded([&] { return wxEntry(argc, argv); }, velmo::kFailed);
}
