#include "app/UpdateWindows.h"
#include "app/ProgramInformation.h"
#include "app/frmAbout.h"
#include "tests/ui/WindowUnderTest.h"

#include <gmock/gmock.h>

#include <wx/checkbox.h>
#include <wx/radiobut.h>

#include <functional>
#include <utility>
#include <vector>

namespace velmo::test
{
namespace
{

constexpr char kProgram[] = "Loadcalc 8";

/// A pointer that remembers its shapes.
struct RecordedPointer final : MousePointer
{
    void Show(PointerShape shape) override { shapes.push_back(shape); }
    std::vector<PointerShape> shapes;
};

/// The manager with the windows of update checking, and what it opened in the browser.
class UpdateWindowsTest : public testing::Test
{
  protected:
    /// Opens the options window of the program for a person.
    void SetOptions(std::function<void(wxWindow&)> person)
    {
        WhenShown("frmUpdateOptions", std::move(person));
        m_windows.SetOptions(kProgram);
    }

    WindowDesktop m_desktop;
    WxMessageLoop m_loop;
    RecordedPrompts m_prompts;
    RecordedPointer m_pointer;
    std::vector<std::string> m_opened;
    UpdateManager m_manager{m_loop, m_prompts, m_pointer, [this](const std::string& address) {
                                m_opened.push_back(address);
                                return Done{};
                            }};
    UpdateWindows m_windows{m_manager, m_prompts, m_pointer};
};

TEST_F(UpdateWindowsTest, OptionsAreWrittenByOkAndByNothingElse)
{
    SetOptions([this](wxWindow& window) {
        EXPECT_EQ(window.GetLabel(), "Loadcalc 8 - Update Options");
        EXPECT_THAT(m_pointer.shapes,
                    testing::ElementsAre(PointerShape::Hourglass, PointerShape::Normal))
            << "while it loads";
        EXPECT_EQ(TextsOf(window, {"fraMain", "lblInstructions", "optStartup0", "optStartup1",
                                   "optStartup2", "chkHVACNotify", "cmdOK", "cmdCancel"}),
                  "Options|Each time I start Loadcalc 8...|"
                  "Ask me whether I want to check for an update.|"
                  "Check for an update automatically, behind the scenes.|"
                  "Don't check for an update.|Check for HVAC equipment and picture updates "
                  "automatically, behind the scenes|OK|Cancel|");
        EXPECT_FALSE(Find<wxRadioButton>(window, "optStartup0").IsEnabled());
        EXPECT_TRUE(Find<wxRadioButton>(window, "optStartup1").GetValue());
        Find<wxRadioButton>(window, "optStartup2").SetValue(true);
        Find<wxCheckBox>(window, "chkHVACNotify").SetValue(true);
        Press(window, "cmdCancel");
    });
    EXPECT_EQ(m_desktop.Setting(kProgram, "CheckForUpdateOnStartupOption"), "(none)");
    SetOptions([](wxWindow& window) {
        Find<wxRadioButton>(window, "optStartup2").SetValue(true);
        EXPECT_FALSE(Find<wxCheckBox>(window, "chkHVACNotify").GetValue());
        Press(window, "cmdOK");
    });
    EXPECT_EQ(m_desktop.Setting(kProgram, "CheckForUpdateOnStartupOption"), "2");
    EXPECT_EQ(m_desktop.Setting(kProgram, "NotifyOfHVACEquipmentUpdateOnStartup"), "0 'False");
    m_desktop.WriteSettings("[Loadcalc 8]\r\nCheckForUpdateOnStartupOption=7\r\n");
    SetOptions([](wxWindow& window) {
        EXPECT_TRUE(Find<wxRadioButton>(window, "optStartup2").GetValue());
        Press(window, "cmdOK");
    });
    EXPECT_EQ(m_desktop.Setting(kProgram, "CheckForUpdateOnStartupOption"), "7") << "left alone";
}

TEST_F(UpdateWindowsTest, AProgramThatAllowsAskingOffersThatChoiceAndTheListShowsIt)
{
    m_desktop.WriteSettings("[Loadcalc 8]\r\nCanAskAboutUpdating=True\r\n"
                            "CanCallCheckUpOnStartup=1 'True\r\n"
                            "CheckForUpdateOnStartupOption=1\r\n"
                            "NotifyOfHVACEquipmentUpdateOnStartup=1 'True\r\n");
    m_manager.FillLists();
    SetOptions([](wxWindow& window) {
        auto& ask = Find<wxRadioButton>(window, "optStartup0");
        EXPECT_TRUE(ask.IsEnabled());
        ask.SetValue(true);
        EXPECT_TRUE(Find<wxCheckBox>(window, "chkHVACNotify").GetValue());
        Press(window, "cmdOK");
    });
    EXPECT_EQ(CellText(*m_manager.Programs().Find(kProgram), ProgramColumn::CheckOnStartup), "Ask");
    EXPECT_EQ(m_desktop.Setting(kProgram, "NotifyOfHVACEquipmentUpdateOnStartup"), "1 'True");
}

TEST_F(UpdateWindowsTest, TheQuestionStaysOpenForOptionsAndIsAnsweredByYesOrNo)
{
    m_desktop.WriteSettings("[Update Message]\r\nLeft=3000\r\nTop=2250\r\n");
    const auto answerAfter = [&](std::function<void(wxWindow&)> person) {
        WhenShown("frmUpdateMessage", std::move(person));
        return m_windows.AskToViewUpdates(StartupRequest("STARTUP Loadcalc 8"), "View them?");
    };
    EXPECT_EQ(answerAfter([&](wxWindow& window) {
                  EXPECT_EQ(window.GetLabel(), "View Available Updates?");
                  EXPECT_EQ(TextOf(window, "lblInstructions"), "View them?");
                  EXPECT_EQ(window.GetPosition(), window.FromDIP(wxPoint(200, 150)));
                  WhenShown("frmUpdateOptions", [](wxWindow& options) { Press(options, "cmdOK"); });
                  Press(window, "cmdOptions");
                  EXPECT_TRUE(window.IsShown());
                  Press(window, "cmdYes");
              }),
              QuestionAnswer::Yes);
    EXPECT_EQ(answerAfter([](wxWindow& window) { Press(window, "cmdNo"); }), QuestionAnswer::No);
    EXPECT_EQ(answerAfter([](wxWindow& window) {
                  window.Move(window.FromDIP(wxPoint(240, 180)));
                  window.Close();
              }),
              QuestionAnswer::No);
    EXPECT_EQ(m_desktop.Setting(kProgram, "CheckForUpdateOnStartupOption"), "1");
    EXPECT_EQ(m_desktop.Setting("Update Message", "Left"), "3600");
}

TEST_F(UpdateWindowsTest, TheUpdateDialogTellsOffersAndLeadsOn)
{
    const ProgramRow program{.index = 4, .installed = {8, 2, 14}, .latest = {8, 2, 15}};
    m_pointer.SetShape(PointerShape::Hourglass);
    WhenShown("frmUpdateDialog", [this](wxWindow& window) {
        EXPECT_EQ(m_pointer.Shape(), PointerShape::Normal);
        EXPECT_EQ(TextsOf(window, {"lblProgram", "lblInstalledVersion", "lblLatestVersion",
                                   "lblInstructions", "cmdUpdateOptions", "cmdDownload"}),
                  "Loadcalc 8|8.02.14|8.02.15|An update for Loadcalc 8 is available.  Click the "
                  "Download Update button to download the setup file for this update.  Be sure to "
                  "close Loadcalc 8 before installing the update.|Loadcalc 8 Update Options...|"
                  "Download Update|");
        Press(window, "cmdGoToUpdatePage");
        WhenShown("frmUpdateOptions", [](wxWindow& options) { Press(options, "cmdCancel"); });
        Press(window, "cmdUpdateOptions");
        EXPECT_TRUE(window.IsShown());
        Press(window, "cmdDownload");
    });
    EXPECT_EQ(m_windows.ShowUpdateDialog(program), DialogAnswer::Download);
    EXPECT_THAT(m_opened,
                testing::ElementsAre(m_desktop.server.Url("/web/hvacr/loadcalc8_ver.html")));
    // The update manager has neither options nor a page.
    WhenShown("frmUpdateDialog", [](wxWindow& window) {
        EXPECT_FALSE(Find<wxButton>(window, "cmdUpdateOptions").IsEnabled());
        EXPECT_FALSE(Find<wxButton>(window, "cmdGoToUpdatePage").IsEnabled());
        EXPECT_TRUE(Find<wxButton>(window, "cmdDownload").IsEnabled());
        Press(window, "cmdClose");
    });
    EXPECT_EQ(m_windows.ShowUpdateDialog({.index = 31}), DialogAnswer::Close);
}

TEST(AboutTest, TellsWhatTheProgramSaysOfItself)
{
    const frmAbout about(
        nullptr,
        {"Velmo Software Update Manager", "1.02.0005", {1, 2, 5}, "What & why", "Copyright 2026"});
    EXPECT_EQ(about.GetTitle(), "About Velmo Software Update Manager");
    EXPECT_EQ(TextsOf(about, {"lblTitle", "lblVersion", "lblDescription", "lblCopyright"}),
              "Velmo Software Update Manager|Version 1.02.5|What & why|Copyright 2026|");
}

} // namespace
} // namespace velmo::test
