#include "app/BuildInformation.h"
#include "app/CCheckOtherInstance.h"
#include "app/UiRequest.h"
#include "app/UpdateWindows.h"
#include "app/VelmoUpdUi_export.h"
#include "app/frmMain.h"
#include "catalogue/CommonFolder.h"
#include "controls/MousePointer.h"
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
#include <optional>
#include <string>

namespace velmo
{
namespace
{

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
        m_manager->Startup().MarkCaller(m_startup);
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
        if (m_request.subject == UiSubject::MainWindow)
        {
            LoadMainWindow()->Open(m_request.commandLine);
            return wxApp::OnRun();
        }
        ShowStatusLines();
        const auto tab = m_manager->TellCaller(m_request.Findings(), m_startup, *m_windows);
        if (!tab)
        {
            return 0;
        }
        LoadMainWindow()->OpenOnUpdates(m_startup.caller, *tab == MainTab::Equipment);
        return wxApp::OnRun();
    }

    /// The command line is searched, not parsed: the toolkit must not look for options in it.
    void OnInitCmdLine(wxCmdLineParser& /*parser*/) override {}
    bool OnCmdLineParsed(wxCmdLineParser& /*parser*/) override { return true; }

    int OnExit() override
    {
        m_listener.reset();
        m_windows.reset();
        m_manager.reset();
        m_loop.reset();
        return wxApp::OnExit();
    }

  protected:
    wxAppTraits* CreateTraits() override { return new Traits; }

  private:
    frmMain* LoadMainWindow()
    {
        const CHourGlass busy(m_pointer);
        auto* window = new frmMain(*m_manager, *m_windows, *m_loop);
        SetTopWindow(window);
        m_window = window;
        m_listener.emplace(kInstanceName, *m_loop,
                           [this] { return m_window != nullptr && m_window->ComeForward(); });
        return window;
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
    std::optional<platform::InstanceListener> m_listener;
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
    return wxEntry(argc, argv);
}
