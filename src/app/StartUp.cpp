#include "app/CCheckOtherInstance.h"
#include "app/frmMain.h"
#include "controls/MousePointer.h"
#include "platform/CommandLine.h"
#include "ui/WxMessageLoop.h"
#include "ui/WxMousePointer.h"
#include "ui/WxPrompts.h"

#include <wx/app.h>

#include <memory>
#include <string>
#include <utility>

namespace velmo
{
namespace
{

/// Lives while the toolkit does; builds the program in its order and hands the parts over.
class Application final : public wxApp
{
  public:
    Application(CCheckOtherInstance& instances, std::string commandLine)
        : m_instances(instances), m_commandLine(std::move(commandLine))
    {}

    bool OnInit() override
    {
        SetAppDisplayName(wxString::FromUTF8(kMainWindowCaption.data(), kMainWindowCaption.size()));
        m_loop = std::make_unique<WxMessageLoop>();
        const CHourGlass busy(m_pointer);
        m_manager = std::make_unique<UpdateManager>(*m_loop, m_prompts, m_pointer);
        auto* window = new frmMain(*m_manager, m_prompts, *m_loop);
        SetTopWindow(window);
        m_instances.Listen(*m_loop, [window] { return window->ComeForward(); });
        window->Open(m_commandLine);
        return true;
    }

    /// The command line is searched, not parsed: the toolkit must not look for options in it.
    void OnInitCmdLine(wxCmdLineParser& /*parser*/) override {}
    bool OnCmdLineParsed(wxCmdLineParser& /*parser*/) override { return true; }

    int OnExit() override
    {
        m_manager.reset();
        m_loop.reset();
        return wxApp::OnExit();
    }

  private:
    CCheckOtherInstance& m_instances;
    std::string m_commandLine;
    WxMousePointer m_pointer;
    WxPrompts m_prompts;
    std::unique_ptr<WxMessageLoop> m_loop;
    std::unique_ptr<UpdateManager> m_manager;
};

int RunStartUp(int argc, char** argv)
{
    CCheckOtherInstance instances;
    if (instances.OtherInstanceRuns(kMainWindowCaption, kMainWindowClass))
    {
        return 0;
    }
    // The toolkit gets the program's name only: the rest of the command line is not for it.
    int ownArgc = 1;
    wxApp::SetInstance(new Application(instances, platform::CommandLineText(argc, argv)));
    return wxEntry(ownArgc, argv);
}

} // namespace
} // namespace velmo

int main(int argc, char** argv)
{
    return velmo::RunStartUp(argc, argv);
}
