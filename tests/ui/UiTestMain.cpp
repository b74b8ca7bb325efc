#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <wx/app.h>
#include <wx/debug.h>
#include <wx/log.h>
#include <wx/utils.h>

namespace
{

/// A failed check of the toolkit's fails the test that is running; its dialog would wait for ever.
void FailOnAssert(const wxString& file, int line, const wxString& function,
                  const wxString& condition, const wxString& message)
{
    ADD_FAILURE() << file << ":" << line << ": " << function << ": " << condition << " " << message;
}

/// The toolkit's program in which the suite runs.
class TestApplication final : public wxApp
{
  public:
    bool OnInit() override
    {
        wxSetAssertHandler(FailOnAssert);
        SetExitOnFrameDelete(false);
        delete wxLog::SetActiveTarget(new wxLogStderr);
        return true;
    }

    int OnRun() override { return RUN_ALL_TESTS(); }

    void OnInitCmdLine(wxCmdLineParser& /*parser*/) override {}
    bool OnCmdLineParsed(wxCmdLineParser& /*parser*/) override { return true; }
};

} // namespace

int main(int argc, char** argv)
{
    testing::InitGoogleMock(&argc, argv);
    // A sanitized program that this suite starts ends while the browser engine's threads still come and go, and the
    // search for leaks then crashes in their storage; this process is searched, with nothing else going on.
    wxSetEnv("LSAN_OPTIONS", "detect_leaks=0");
    wxApp::SetInstance(new TestApplication);
    int ownArgc = 1;
    return wxEntry(ownArgc, argv);
}
