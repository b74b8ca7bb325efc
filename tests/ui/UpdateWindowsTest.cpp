#include "app/UpdateWindows.h"
#include "app/ProgramInformation.h"
#include "app/frmAbout.h"
#include "tests/ui/WindowUnderTest.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

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
constexpr ProgramVersion kOwn{1, 5, 0};

/// A pointer that remembers its shapes.
class RecordedPointer final : public MousePointer
{
  public:
    std::vector<PointerShape> shapes;

  private:
    void Show(PointerShape shape) override { shapes.push_back(shape); }
};

/// The manager with the windows of update checking, and what it opened in the browser.
class UpdateWindowsTest : public testing::Test
{
  protected:
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
    WhenShown("frmUpdateOptions", [this](wxWindow& window) {
        EXPECT_EQ(window.GetLabel(), "Loadcalc 8 - Update Options");
        EXPECT_THAT(m_pointer.shapes,
                    testing::ElementsAre(PointerShape::Hourglass, PointerShape::Normal))
            << "while it loads";
        const struct
        {
            const char* control;
            const char* text;
        } texts[] = {
            {"fraMain", "Options"},
            {"lblInstructions", "Each time I start Loadcalc 8..."},
            {"optStartup0", "Ask me whether I want to check for an update."},
            {"optStartup1", "Check for an update automatically, behind the scenes."},
            {"optStartup2", "Don't check for an update."},
            {"chkHVACNotify",
             "Check for HVAC equipment and picture updates automatically, behind the scenes"},
            {"cmdCancel", "Cancel"},
        };
        for (const auto& row : texts)
        {
            EXPECT_EQ(TextOf(window, row.control), row.text);
        }
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
                            "CheckForUpdateOnStartupOption=1\r\n"
                            "NotifyOfHVACEquipmentUpdateOnStartup=1 'True\r\n");
    m_manager.FillLists();
    const auto cell = [this] {
        return CellText(*m_manager.Programs().Find(kProgram), ProgramColumn::CheckOnStartup);
    };
    EXPECT_EQ(cell(), "Yes");
    WhenShown("frmUpdateOptions", [](wxWindow& window) {
        auto& ask = Find<wxRadioButton>(window, "optStartup0");
        EXPECT_TRUE(ask.IsEnabled());
        ask.SetValue(true);
        EXPECT_TRUE(Find<wxCheckBox>(window, "chkHVACNotify").GetValue());
        Press(window, "cmdOK");
    });
    m_windows.SetOptions(kProgram);
    EXPECT_EQ(cell(), "Ask");
    EXPECT_EQ(m_desktop.Setting(kProgram, "NotifyOfHVACEquipmentUpdateOnStartup"), "1 'True");
}

TEST_F(UpdateWindowsTest, TheQuestionTellsWhatThereIs)
{
    const ProgramRow needsUpdate{.index = 4, .installed = {8, 2, 14}, .latest = {8, 2, 15}};
    const struct
    {
        StartupFindings findings;
        const char* text;
    } rows[] = {
        {{needsUpdate, {17, 3}},
         "An update is available for Loadcalc 8, and updates are also available for 17 of the HVAC "
         "equipment databases that you have installed, and 3 of the HVAC equipment picture groups "
         "that you have installed.  Would you like to see the list of available updates?"},
        {{needsUpdate, {1, 0}},
         "An update is available for Loadcalc 8, and updates are also available for 1 of the HVAC "
         "equipment databases that you have installed.  Would you like to see the list of "
         "available updates?"},
        {{needsUpdate, {0, 1}},
         "An update is available for Loadcalc 8, and updates are also available for 1 of the HVAC "
         "equipment picture groups that you have installed.  Would you like to see the list of "
         "available updates?"},
        {{std::nullopt, {17, 3}},
         "Updates are available for 17 of the HVAC equipment databases that you have installed, "
         "and 3 of the HVAC equipment picture groups that you have installed.  Would you like to "
         "see the list of available updates?"},
        {{std::nullopt, {17, 0}},
         "Updates are available for 17 of the HVAC equipment databases that you have installed.  "
         "Would you like to see the list of available updates?"},
        {{std::nullopt, {0, 3}},
         "Updates are available for 3 of the HVAC equipment picture groups that you have "
         "installed.  Would you like to see the list of available updates?"},
    };
    for (const auto& row : rows)
    {
        EXPECT_EQ(StartupQuestion(row.findings, kProgram), row.text);
    }
}

TEST_F(UpdateWindowsTest, TheQuestionStaysOpenForOptionsAndIsAnsweredByYesOrNo)
{
    m_desktop.WriteSettings("[Update Message]\r\nLeft=3000\r\nTop=2250\r\n");
    const StartupRequest request("STARTUP Loadcalc 8");
    const std::string question = StartupQuestion({std::nullopt, {17, 3}}, kProgram);
    const auto answerAfter = [&](std::function<void(wxWindow&)> person) {
        WhenShown("frmUpdateMessage", std::move(person));
        return m_windows.AskToViewUpdates(request, question);
    };
    EXPECT_EQ(answerAfter([&](wxWindow& window) {
                  EXPECT_EQ(window.GetLabel(), "View Available Updates?");
                  EXPECT_EQ(TextOf(window, "lblInstructions"), question);
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
        EXPECT_EQ(TextOf(window, "lblProgram"), kProgram);
        EXPECT_EQ(TextOf(window, "lblInstalledVersion"), "8.02.14");
        EXPECT_EQ(TextOf(window, "lblLatestVersion"), "8.02.15");
        EXPECT_EQ(TextOf(window, "lblInstructions"),
                  "An update for Loadcalc 8 is available.  Click the Download Update button to "
                  "download the setup file for this update.  Be sure to close Loadcalc 8 before "
                  "installing the update.");
        EXPECT_EQ(TextOf(window, "cmdUpdateOptions"), "Loadcalc 8 Update Options...");
        EXPECT_EQ(TextOf(window, "cmdDownload"), "Download Update");
        Press(window, "cmdGoToUpdatePage");
        WhenShown("frmUpdateOptions", [](wxWindow& options) { Press(options, "cmdCancel"); });
        Press(window, "cmdUpdateOptions");
        EXPECT_TRUE(window.IsShown());
        Press(window, "cmdDownload");
    });
    EXPECT_EQ(m_windows.ShowUpdateDialog(program), DialogAnswer::Download);
    EXPECT_THAT(m_opened,
                testing::ElementsAre(m_desktop.server.Url("/web/hvacr/loadcalc8_ver.html")));
    WhenShown("frmUpdateDialog", [](wxWindow& window) { Press(window, "cmdClose"); });
    EXPECT_EQ(m_windows.ShowUpdateDialog(program), DialogAnswer::Close);
}

TEST_F(UpdateWindowsTest, TheUpdateManagerHasNeitherOptionsNorAPage)
{
    WhenShown("frmUpdateDialog", [](wxWindow& window) {
        EXPECT_FALSE(Find<wxButton>(window, "cmdUpdateOptions").IsEnabled());
        EXPECT_FALSE(Find<wxButton>(window, "cmdGoToUpdatePage").IsEnabled());
        EXPECT_TRUE(Find<wxButton>(window, "cmdDownload").IsEnabled());
        Press(window, "cmdClose");
    });
    EXPECT_EQ(
        m_windows.ShowUpdateDialog({.index = 31, .installed = {1, 4, 12}, .latest = {1, 5, 0}}),
        DialogAnswer::Close);
}

TEST_F(UpdateWindowsTest, AfterOpeningTheNamedProgramsStatusIsTold)
{
    m_manager.FillLists();
    m_manager.Programs().List().Select(kProgram);
    const auto toldAfter = [this](const char* revision) {
        m_desktop.ServeLists(std::string("[Loadcalc 8]\r\nMajor=8\r\nMinor=2\r\nRevision=") +
                             revision + "\r\n");
        m_manager.RunAfterOpening(StartupRequest(kProgram), kOwn, m_windows);
        EXPECT_TRUE(m_manager.Lists().Succeeded());
        return m_prompts.Lines().back();
    };
    EXPECT_EQ(toldAfter("15"), "Update Status Unknown|There was a problem in getting the update "
                               "status for Loadcalc 8.");
    m_desktop.InstallLoadcalc();
    EXPECT_EQ(toldAfter("15"), "Up to Date|Loadcalc 8 is up to date.");
    EXPECT_EQ(toldAfter("16"), "Need to Update|Loadcalc 8 needs to be updated.  Click \"Download "
                               "Update for Loadcalc 8\" to download and install the update.");
    m_manager.RunAfterOpening(StartupRequest("Manufacturer Databases"), kOwn, m_windows);
    EXPECT_EQ(m_prompts.notices.size(), 3U);
    m_manager.DeleteLists();
}

TEST_F(UpdateWindowsTest, AfterOpeningAnUpdateOfTheUpdateManagerIsOffered)
{
    m_desktop.ServeLists("[Update Manager 1]\r\nMajor=1\r\nMinor=6\r\n"
                         "Demo URL=http://setups.example/velmoupd.exe\r\n");
    WhenShown("frmUpdateDialog", [](wxWindow& window) {
        EXPECT_EQ(TextOf(window, "lblProgram"), "Update Manager 1");
        EXPECT_EQ(TextOf(window, "lblInstalledVersion"), "1.05.0");
        Press(window, "cmdDownload");
    });
    m_manager.RunAfterOpening(StartupRequest(""), kOwn, m_windows);
    EXPECT_THAT(m_opened, testing::ElementsAre("http://setups.example/velmoupd.exe"));
    EXPECT_EQ(m_prompts.notices.size(), 1U) << "the reminder";
    m_manager.DeleteLists();
}

TEST(AboutTest, TellsWhatTheProgramSaysOfItself)
{
    const frmAbout about(
        nullptr,
        {"Velmo Software Update Manager", "1.02.0005", {1, 2, 5}, "What & why", "Copyright 2026"});
    EXPECT_EQ(about.GetTitle(), "About Velmo Software Update Manager");
    EXPECT_EQ(TextOf(about, "lblTitle"), "Velmo Software Update Manager");
    EXPECT_EQ(TextOf(about, "lblVersion"), "Version 1.02.5");
    EXPECT_EQ(TextOf(about, "lblDescription"), "What & why");
    EXPECT_EQ(TextOf(about, "lblCopyright"), "Copyright 2026");
}

} // namespace
} // namespace velmo::test
