#include "updates/StartupCheck.h"

#include "tests/support/ProgramDesktop.h"
#include "updates/StartupOptions.h"
#include "updates/VersionList.h"

#include <tuple>

namespace velmo
{
namespace
{

TEST(StartupRequestTest, TheCommandLineIsSearchedNotSplit)
{
    // Start-up mode, databases tab, caller with its index, asks for the status.
    constexpr std::tuple<const char*, bool, bool, const char*, int, bool> kRows[] = {
        {"", false, false, "", 0, false},
        {"   ", false, false, "", 0, false},
        {"/startup", true, false, "", 0, false},
        {"xSTARTUPx", true, false, "", 0, false},
        {"startup loadcalc 8", true, false, "Loadcalc 8", 4, false},
        {"  Loadcalc 8 ", false, false, "Loadcalc 8", 4, true},
        {"Loadcalc8", false, false, "", 0, true},
        {"Manufacturer Databases", false, true, "", 0, false},
        {"manufacturer databases", false, false, "", 0, true},
        {"STARTUP Wiring 2 Manufacturer Databases", true, true, "Wiring 2", 26, false},
    };
    for (const auto& [commandLine, startupMode, databasesTab, caller, index, asks] : kRows)
    {
        SCOPED_TRACE(commandLine);
        const StartupRequest request(commandLine);
        EXPECT_EQ(request.startupMode, startupMode);
        EXPECT_EQ(request.databasesTab, databasesTab);
        EXPECT_EQ(request.caller, caller);
        EXPECT_EQ(request.callerIndex, index);
        EXPECT_EQ(request.AsksForStatus(), asks);
    }
    EXPECT_EQ(StartupRequest("  Loadcalc 8 ").text, "Loadcalc 8");
}

TEST(StartupFindingsTest, TheQuestionTellsWhatThereIsAndTheProgramAloneIsADialog)
{
    const ProgramRow update{.index = 4};
    const std::string database = " of the HVAC equipment databases that you have installed";
    const std::string pictures = " of the HVAC equipment picture groups that you have installed";
    const std::string ask = ".  Would you like to see the list of available updates?";
    const std::string also =
        "An update is available for Loadcalc 8, and updates are also available for ";
    const std::string only = "Updates are available for ";
    const std::pair<StartupFindings, std::string> rows[] = {
        {{update, {17, 3}}, also + "17" + database + ", and 3" + pictures + ask},
        {{update, {1, 0}}, also + "1" + database + ask},
        {{update, {0, 1}}, also + "1" + pictures + ask},
        {{{}, {17, 3}}, only + "17" + database + ", and 3" + pictures + ask},
        {{{}, {17, 0}}, only + "17" + database + ask},
        {{{}, {0, 3}}, only + "3" + pictures + ask},
    };
    for (const auto& [findings, question] : rows)
    {
        EXPECT_EQ(StartupQuestion(findings, "Loadcalc 8"), question);
        EXPECT_EQ(findings.Outcome(), StartupOutcome::Question);
    }
    EXPECT_EQ(StartupFindings().Outcome(), StartupOutcome::Nothing);
    EXPECT_EQ((StartupFindings{update, {}}.Outcome()), StartupOutcome::Dialog);
}

class StartupCheckTest : public test::ProgramDesktop
{
  protected:
    StartupFindings Check(const std::string& list, EquipmentCounts equipment = {})
    {
        const VersionList versions(list);
        return m_check.CheckCaller(
            StartupRequest("STARTUP Loadcalc 8"), {m_settings.Snapshot(), SharedValues::Read()},
            [&] {
                ++m_fetches;
                return versions.IsList() ? &versions : nullptr;
            },
            [&] {
                ++m_counts;
                return equipment;
            });
    }

    StartupCheck m_check{m_locator};
    int m_fetches = 0;
    int m_counts = 0;
};

constexpr char kNewer[] = "[Loadcalc 8]\r\nMajor=8\r\nMinor=3\r\nRevision=-1\r\n"
                          "Demo URL=http://setups.example/lc.exe\r\n";
constexpr char kSame[] = "[Loadcalc 8]\r\nMajor=8\r\nMinor=2\r\nRevision=15\r\n";

TEST_F(StartupCheckTest, AnUpdateOfTheCallerIsFoundWithBothVersions)
{
    Install({8, 2, 15});
    const StartupFindings findings = Check(kNewer);
    ASSERT_TRUE(findings.update);
    EXPECT_EQ(findings.update->Name(), "Loadcalc 8");
    EXPECT_EQ(findings.update->installed, (ProgramVersion{8, 2, 15}));
    EXPECT_EQ(findings.update->latest, (ProgramVersion{8, 3, -1}));
    EXPECT_EQ(findings.update->demoAddress, "http://setups.example/lc.exe");
    EXPECT_EQ(m_counts, 0) << "Loadcalc 8 does not ask for equipment of itself";
    EXPECT_FALSE(Check(kSame).update);
    EXPECT_FALSE(Check("[Other]\r\nMajor=1\r\n").update) << "not in the list";
}

TEST_F(StartupCheckTest, TheOptionsDecideWhatIsLookedAt)
{
    const struct
    {
        const char* options;
        bool installed;
        int fetches;
        bool program;
        std::int32_t databases;
    } rows[] = {
        {"", true, 1, true, 0},
        {"", false, 0, false, 0},
        {"CheckForUpdateOnStartupOption=2", true, 0, false, 0},
        {"CanAskAboutUpdating=1\r\nCheckForUpdateOnStartupOption=0", true, 0, false, 0},
        {"CheckForUpdateOnStartup=0 'False", true, 0, false, 0},
        {"CheckForUpdateOnStartupOption=1\r\nNotifyOfHVACEquipmentUpdateOnStartup=True", true, 1,
         true, 7},
        {"CheckForUpdateOnStartupOption=2\r\nNotifyOfHVACEquipmentUpdateOnStartup=True", true, 1,
         false, 7},
        {"NotifyOfHVACEquipmentUpdateOnStartup=True", false, 1, false, 7},
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(std::string(row.options) + (row.installed ? ", installed" : ""));
        Install({8, 2, 15}, row.installed ? "Loadcalc8.exe" : "other.exe");
        WriteSettings(std::string("[Loadcalc 8]\r\n") + row.options);
        m_fetches = 0;
        const StartupFindings findings = Check(kNewer, {7, 2});
        EXPECT_EQ(m_fetches, row.fetches);
        EXPECT_EQ(findings.update.has_value(), row.program);
        EXPECT_EQ(findings.equipment.databases, row.databases);
        if (row.installed)
        {
            ASSERT_TRUE(platform::MFile::DeleteIfExists(m_desktop.Folder() + "Loadcalc8.exe").Ok());
        }
    }
}

TEST_F(StartupCheckTest, AFailedFetchFindsNothing)
{
    Install({8, 2, 15});
    WriteSettings("[Loadcalc 8]\r\nNotifyOfHVACEquipmentUpdateOnStartup=True\r\n");
    EXPECT_EQ(Check("", {7, 2}).Outcome(), StartupOutcome::Nothing);
    EXPECT_EQ(m_counts, 0);
}

TEST_F(StartupCheckTest, ACallerIsRememberedOnceAndNobodyElse)
{
    MarkCaller(m_settings, m_settings.Snapshot(), StartupRequest("STARTUP"));
    EXPECT_FALSE(platform::MFile::FileExists(m_desktop.Folder() + "VelmoUpd.ini"));
    MarkCaller(m_settings, m_settings.Snapshot(), StartupRequest("loadcalc 8"));
    EXPECT_EQ(Settings(), "[Loadcalc 8]\r\nCanCallCheckUpOnStartup=1 'True\r\n");
}

TEST_F(StartupCheckTest, TheUpdateManagersOwnUpdateIsOfferedWhenItIsOlder)
{
    constexpr char kOwn[] = "[Update Manager 1]\r\nMajor=1\r\nMinor=5\r\n";
    constexpr ProgramVersion kRunning{1, 5, 0};
    const VersionList list(kOwn);
    const auto check = [&](const ProgramVersion& running, const VersionList& latest) {
        return m_check.CheckSelf(running, latest, SharedValues::Read());
    };
    EXPECT_FALSE(check({}, {})) << "no list";
    EXPECT_FALSE(check(kRunning, list)) << "runs from elsewhere";
    EXPECT_TRUE(check({}, list)) << "a build without a version";
    Install({1, 4, 12}, "VelmoUpd.exe");
    const auto notice = check(kRunning, list);
    ASSERT_TRUE(notice);
    EXPECT_EQ(notice->Name(), "Update Manager 1");
    EXPECT_EQ(notice->installed, (ProgramVersion{1, 4, 12}));
    EXPECT_EQ(notice->latest, (ProgramVersion{1, 5, 0}));
    Install({1, 5, 0}, "VelmoUpd.exe");
    EXPECT_FALSE(check({}, list));
}

using StartupOptionsTest = test::ProgramDesktop;

TEST_F(StartupOptionsTest, AProgramThatNeverAllowedAskingKeepsItsEarlierChoice)
{
    constexpr std::tuple<const char*, int, const char*, bool> kRows[] = {
        {"", 1, "Yes", false},
        {"CheckForUpdateOnStartup=0 'False", 2, "No", false},
        {"CheckForUpdateOnStartup=1 'True", 1, "Yes", false},
        {"CheckForUpdateOnStartupOption=1\r\nCheckForUpdateOnStartup=0", 1, "Yes", false},
        {"CheckForUpdateOnStartupOption=2", 2, "No", false},
        {"CheckForUpdateOnStartupOption=7", 7, "No", false},
        {"CheckForUpdateOnStartupOption=99999999999", 2, "No", false},
        {"CanAskAboutUpdating=tRUE", 0, "Ask", true},
        {"CanAskAboutUpdating=1 'True\r\nCheckForUpdateOnStartup=0", 0, "Ask", true},
        {"CanAskAboutUpdating=-1\r\nCheckForUpdateOnStartupOption=2", 2, "No", true},
        {"CanAskAboutUpdating=0 'False\r\nCheckForUpdateOnStartupOption=0", 1, "Yes", false},
    };
    for (const auto& [entries, option, text, canAsk] : kRows)
    {
        SCOPED_TRACE(entries);
        WriteSettings(std::string("[Wiring 2]\r\n") + entries + "\r\n");
        const StartupOptions options = ReadStartupOptions(m_settings.Snapshot(), "Wiring 2");
        EXPECT_EQ(options.option, option);
        EXPECT_EQ(StartupOptionText(options.option), text);
        EXPECT_EQ(options.canAsk, canAsk);
    }
}

TEST_F(StartupOptionsTest, EquipmentIsCheckedAsTheCatalogueSaysUnlessChosen)
{
    WriteSettings("[Chillersize 5]\r\nNotifyOfHVACEquipmentUpdateOnStartup=0 'False\r\n"
                  "[Wiring 2]\r\nNotifyOfHVACEquipmentUpdateOnStartup=1 'True\r\n");
    constexpr std::pair<const char*, bool> kRows[] = {
        {"Airflow 3", true}, {"Chillersize 5", false}, {"Wiring 2", true}, {"Ductsize 6", false}};
    for (const auto& [name, notify] : kRows)
    {
        EXPECT_EQ(ReadStartupOptions(m_settings.Snapshot(), name).notifyOfEquipment, notify)
            << name;
    }
}

TEST_F(StartupOptionsTest, WhatTheProgramsDecideIsNotWritten)
{
    const std::string theirs = "[Wiring 2]\r\nCanAskAboutUpdating=True\r\n"
                               "CheckForUpdateOnStartup=False\r\n";
    WriteSettings(theirs);
    WriteStartupOptions(m_settings, "Wiring 2", false, 2);
    EXPECT_EQ(Settings(), theirs + "NotifyOfHVACEquipmentUpdateOnStartup=0 'False\r\n"
                                   "CheckForUpdateOnStartupOption=2\r\n");
}

} // namespace
} // namespace velmo
