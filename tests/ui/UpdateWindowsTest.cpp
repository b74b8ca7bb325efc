#include "app/UpdateWindows.h"
#include "app/ProgramInformation.h"
#include "app/frmAbout.h"
#include "tests/ui/WindowUnderTest.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <wx/checkbox.h>
#include <wx/radiobut.h>
#include <wx/stattext.h>

#include <functional>
#include <stdexcept>
#include <vector>

namespace velmo::test
{
namespace
{

constexpr char kProgram[] = "Loadcalc 8";

/// The manager with the windows of update checking, and what it opened in the browser.
class UpdateWindowsTest : public testing::Test
{
  protected:
    /// Once the modal window of that name is shown, hands it to @a person.
    void WhenShown(const char* name, std::function<void(wxWindow&)> person)
    {
        m_loop.After(std::chrono::milliseconds(20), [this, name, person] {
            wxWindow* window = wxWindow::FindWindowByName(name);
            if (window == nullptr || !window->IsShown())
            {
                WhenShown(name, person);
                return;
            }
            person(*window);
        });
    }

    template <typename Control>
    static Control& Find(wxWindow& window, const char* name)
    {
        auto* control = dynamic_cast<Control*>(wxWindow::FindWindowByName(name, &window));
        if (control == nullptr)
        {
            throw std::runtime_error(std::string("no control ") + name);
        }
        return *control;
    }

    static void Press(wxWindow& window, const char* name)
    {
        auto& button = Find<wxButton>(window, name);
        ASSERT_TRUE(button.IsEnabled()) << name;
        wxCommandEvent click(wxEVT_BUTTON, button.GetId());
        click.SetEventObject(&button);
        button.GetEventHandler()->ProcessEvent(click);
    }

    static std::string Text(wxWindow& window, const char* name)
    {
        // Wrapping puts line breaks in the place of blanks.
        wxString text = Find<wxStaticText>(window, name).GetLabel();
        text.Replace("\n", " ");
        return text.utf8_string();
    }

    WindowDesktop m_desktop;
    WxMessageLoop m_loop;
    RecordedPrompts m_prompts;
    WxMousePointer m_pointer;
    std::vector<std::string> m_opened;
    UpdateManager m_manager{m_loop, m_prompts, m_pointer, [this](const std::string& address) {
                                m_opened.push_back(address);
                                return Done{};
                            }};
    UpdateWindows m_windows{m_manager, m_prompts, m_pointer};
};

TEST_F(UpdateWindowsTest, OptionsAreWrittenByOkAndByNothingElse)
{
    WhenShown("frmUpdateOptions", [](wxWindow& window) {
        EXPECT_EQ(window.GetLabel(), "Loadcalc 8 - Update Options");
        EXPECT_EQ(Text(window, "lblInstructions"), "Each time I start Loadcalc 8...");
        EXPECT_FALSE(Find<wxRadioButton>(window, "optStartup0").IsEnabled());
        EXPECT_TRUE(Find<wxRadioButton>(window, "optStartup1").GetValue());
        Find<wxRadioButton>(window, "optStartup2").SetValue(true);
        Find<wxCheckBox>(window, "chkHVACNotify").SetValue(true);
        Press(window, "cmdCancel");
    });
    m_windows.SetOptions(kProgram);
    EXPECT_EQ(m_desktop.Setting(kProgram, "CheckForUpdateOnStartupOption"), "(none)");

    WhenShown("frmUpdateOptions", [](wxWindow& window) {
        Find<wxRadioButton>(window, "optStartup2").SetValue(true);
        EXPECT_FALSE(Find<wxCheckBox>(window, "chkHVACNotify").GetValue());
        Press(window, "cmdOK");
    });
    m_windows.SetOptions(kProgram);
    EXPECT_EQ(m_desktop.Setting(kProgram, "CheckForUpdateOnStartupOption"), "2");
    EXPECT_EQ(m_desktop.Setting(kProgram, "NotifyOfHVACEquipmentUpdateOnStartup"), "0 'False");
}

TEST_F(UpdateWindowsTest, AProgramThatAllowsAskingOffersThatChoiceAndTheListShowsIt)
{
    m_desktop.WriteSettings("[Loadcalc 8]\r\nCanAskAboutUpdating=True\r\n"
                            "CanCallCheckUpOnStartup=1 'True\r\n"
                            "CheckForUpdateOnStartupOption=1\r\n");
    m_manager.FillLists();
    const auto cell = [this] { return m_manager.Programs().List().Find(kProgram)->cells[1]; };
    EXPECT_EQ(cell(), "Yes");
    WhenShown("frmUpdateOptions", [](wxWindow& window) {
        auto& ask = Find<wxRadioButton>(window, "optStartup0");
        EXPECT_TRUE(ask.IsEnabled());
        ask.SetValue(true);
        Find<wxCheckBox>(window, "chkHVACNotify").SetValue(true);
        Press(window, "cmdOK");
    });
    m_windows.SetOptions(kProgram);
    EXPECT_EQ(cell(), "Ask");
    EXPECT_EQ(m_desktop.Setting(kProgram, "NotifyOfHVACEquipmentUpdateOnStartup"), "1 'True");
}

TEST_F(UpdateWindowsTest, TheQuestionStaysOpenForOptionsAndIsAnsweredByYesOrNo)
{
    const StartupRequest request("STARTUP Loadcalc 8");
    const std::string question = StartupQuestion({true, "8.02.14", "8.02.15", {3, 2}}, kProgram);
    WhenShown("frmUpdateMessage", [&](wxWindow& window) {
        EXPECT_EQ(window.GetLabel(), "View Available Updates?");
        WhenShown("frmUpdateOptions", [](wxWindow& options) { Press(options, "cmdOK"); });
        Press(window, "cmdOptions");
        EXPECT_EQ(m_desktop.Setting(kProgram, "CheckForUpdateOnStartupOption"), "1");
        EXPECT_TRUE(window.IsShown());
        std::string shown = Text(window, "lblInstructions");
        EXPECT_NE(shown.find("for 3 of the HVAC equipment databases"), std::string::npos) << shown;
        Press(window, "cmdYes");
    });
    EXPECT_EQ(m_windows.AskToViewUpdates(request, question), QuestionAnswer::Yes);
    WhenShown("frmUpdateMessage", [](wxWindow& window) { Press(window, "cmdNo"); });
    EXPECT_EQ(m_windows.AskToViewUpdates(request, question), QuestionAnswer::No);
    WhenShown("frmUpdateMessage", [](wxWindow& window) { window.Close(); });
    EXPECT_EQ(m_windows.AskToViewUpdates(request, question), QuestionAnswer::No);
    EXPECT_NE(m_desktop.Setting("Update Message", "Left"), "(none)");
}

TEST_F(UpdateWindowsTest, TheUpdateDialogTellsOffersAndLeadsOn)
{
    const UpdateNotice notice{4, kProgram, "8.02.14", "8.02.15"};
    m_pointer.SetShape(PointerShape::Hourglass);
    WhenShown("frmUpdateDialog", [this](wxWindow& window) {
        EXPECT_EQ(m_pointer.Shape(), PointerShape::Normal);
        EXPECT_EQ(Text(window, "lblProgram"), kProgram);
        EXPECT_EQ(Text(window, "lblInstalledVersion"), "8.02.14");
        EXPECT_EQ(Text(window, "lblLatestVersion"), "8.02.15");
        EXPECT_EQ(Find<wxButton>(window, "cmdUpdateOptions").GetLabel(),
                  "Loadcalc 8 Update Options...");
        Press(window, "cmdGoToUpdatePage");
        WhenShown("frmUpdateOptions", [](wxWindow& options) { Press(options, "cmdCancel"); });
        Press(window, "cmdUpdateOptions");
        EXPECT_TRUE(window.IsShown());
        Press(window, "cmdDownload");
    });
    EXPECT_EQ(m_windows.ShowUpdateDialog(notice), DialogAnswer::Download);
    EXPECT_THAT(m_opened,
                testing::ElementsAre(m_desktop.server.Url("/web/hvacr/loadcalc8_ver.html")));
    WhenShown("frmUpdateDialog", [](wxWindow& window) { Press(window, "cmdClose"); });
    EXPECT_EQ(m_windows.ShowUpdateDialog(notice), DialogAnswer::Close);
}

TEST_F(UpdateWindowsTest, TheUpdateManagerHasNeitherOptionsNorAPage)
{
    WhenShown("frmUpdateDialog", [](wxWindow& window) {
        EXPECT_FALSE(Find<wxButton>(window, "cmdUpdateOptions").IsEnabled());
        EXPECT_FALSE(Find<wxButton>(window, "cmdGoToUpdatePage").IsEnabled());
        EXPECT_TRUE(Find<wxButton>(window, "cmdDownload").IsEnabled());
        Press(window, "cmdClose");
    });
    EXPECT_EQ(m_windows.ShowUpdateDialog({31, "Update Manager 1", "1.04.12", "1.05.0"}),
              DialogAnswer::Close);
}

TEST_F(UpdateWindowsTest, AfterOpeningTheNamedProgramsStatusIsToldAndTheOwnUpdateOffered)
{
    m_desktop.ServeLists("[Loadcalc 8]\r\nMajor=8\r\n[Update Manager 1]\r\nMajor=1\r\n");
    m_manager.FillLists();
    m_manager.Programs().List().Select(kProgram);
    m_manager.RunAfterOpening(StartupRequest(kProgram), m_windows);
    EXPECT_TRUE(m_manager.Lists().Succeeded());
    EXPECT_THAT(m_prompts.Lines(),
                testing::ElementsAre("Update Status Unknown|There was a problem in getting the "
                                     "update status for Loadcalc 8."));
    m_manager.RunAfterOpening(StartupRequest("Manufacturer Databases"), m_windows);
    EXPECT_EQ(m_prompts.notices.size(), 1U);
    m_manager.DeleteLists();
}

TEST(AboutTest, TellsWhatTheProgramSaysOfItself)
{
    const frmAbout about(
        nullptr, {"Velmo Software Update Manager", "1.02.0005", "What & why", "Copyright 2026"});
    const auto label = [&about](const char* name) {
        return wxControl::RemoveMnemonics(wxWindow::FindWindowByName(name, &about)->GetLabel());
    };
    EXPECT_EQ(about.GetTitle(), "About Velmo Software Update Manager");
    EXPECT_EQ(label("lblTitle"), "Velmo Software Update Manager");
    EXPECT_EQ(label("lblVersion"), "Version 1.02.5");
    EXPECT_EQ(label("lblDescription"), "What & why");
    EXPECT_EQ(label("lblCopyright"), "Copyright 2026");
    EXPECT_EQ(VersionLabel("12.3.0"), "Version 12.03.0");
    EXPECT_EQ(VersionLabel("x"), "Version 0.00.0");
    EXPECT_FALSE(OwnInformation().title.empty());
}

} // namespace
} // namespace velmo::test
