#include "manager/UpdateManager.h"

#include "platform/MFile.h"
#include "sample/EquipmentDatabaseFile.h"
#include "tests/manager/ManagerDesktop.h"

namespace velmo
{
namespace
{

using test::kManufacturers;
using test::kVersions;
using testing::ElementsAre;
using testing::HasSubstr;
namespace MFile = platform::MFile;

class UpdateManagerTest : public test::ManagerDesktop
{};

TEST_F(UpdateManagerTest, AutomaticConnectionIsTheDefaultAndRemembered)
{
    EXPECT_TRUE(m_manager->AutoConnect());
    m_manager->SetAutoConnect(false);
    EXPECT_FALSE(UpdateManager(m_loop, m_person, m_pointer).AutoConnect());
    EXPECT_EQ(Settings(), "[Miscellaneous]\r\nAutoConnect=0 'False\r\n");
}

/// Loadcalc 8, 8.02.14 of 8.02.15; two databases, one of which is out of date, and two groups of
/// pictures that are.
TEST_F(UpdateManagerTest, AStartupRunFindsWhatItsCallerWantsToKnow)
{
    WriteSettings("[Loadcalc 8]\r\nNotifyOfHVACEquipmentUpdateOnStartup=1 'True\r\n");
    for (const auto& [file, year] : {std::pair("pumps.mdb", 2024), std::pair("coils.mdb", 2026)})
    {
        m_desktop.Write(file, sample::EquipmentDatabaseFile(file, std::chrono::year(year) /
                                                                      std::chrono::March / 1));
    }
    m_desktop.Write("EquipPic\\Pumps\\x.jpg", "");
    m_desktop.Write("EquipPic\\Coils\\x.jpg", "");
    m_server.Serve(kManufacturers, "[Manufver General]\r\nServer Address HTTP=http://s.example\r\n"
                                   "[Pumps]\r\n1MDBFilename=pumps.mdb\r\n1ReleaseDate=2/1/2025\r\n"
                                   "PictureSetupFilename=p.exe\r\n"
                                   "[Coils]\r\n1MDBFilename=coils.mdb\r\n1ReleaseDate=2/1/2025\r\n"
                                   "PictureSetupFilename=c.exe\r\n");
    const StartupFindings findings =
        m_manager->CheckForCaller(StartupRequest("STARTUP Loadcalc 8"));
    ASSERT_TRUE(findings.update);
    EXPECT_EQ(findings.update->installed, (ProgramVersion{8, 2, 14}));
    EXPECT_EQ(findings.update->latest, (ProgramVersion{8, 2, 15}));
    EXPECT_EQ(findings.equipment.databases, 1);
    EXPECT_EQ(findings.equipment.pictures, 2);
    EXPECT_TRUE(m_manager->Programs().Rows().empty()) << "nobody looks at lists";
    EXPECT_THAT(m_manager->Lists().Bytes().manufacturers, HasSubstr("http://s.example"))
        << "the window takes it over";
    m_manager->FillLists();
    EXPECT_EQ(m_manager->Shown().Counts().Text(),
              "Need to Update:  Programs: 1, Databases: 1, Pictures: 2");
    EXPECT_FALSE(UpdateCounts().Any());
    EXPECT_TRUE((UpdateCounts{1, 0, 0}.Any() && UpdateCounts{0, 1, 0}.Any() &&
                 UpdateCounts{0, 0, 1}.Any()));
}

TEST_F(UpdateManagerTest, AStartupRunGivesTheServerFortySeconds)
{
    using namespace std::chrono_literals;
    const StartupRequest request("STARTUP Loadcalc 8");
    const auto now = std::chrono::steady_clock::now();
    EXPECT_FALSE(m_manager->CheckForCaller(request, now - 40s).update.has_value());
    EXPECT_TRUE(m_server.Requests().empty());
    EXPECT_THAT(m_desktop.Read("VelmoUpd.log"), HasSubstr("The time for downloads was over."));
    EXPECT_TRUE(m_manager->CheckForCaller(request, now - 20s).update.has_value());
}

TEST_F(UpdateManagerTest, ACallersPersonIsAskedOrToldAndTheListsGoUnlessTheWindowOpens)
{
    const ProgramRow update{.index = 4, .installed = {1, 0, 0}, .latest = {2, 0, 0}};
    const struct
    {
        StartupFindings findings;
        QuestionAnswer answer;
        std::optional<MainTab> tab;
        const char* heard;
    } rows[] = {
        {{{}, {2, 1}},
         QuestionAnswer::Yes,
         MainTab::Equipment,
         "Loadcalc 8|Updates are "
         "available for 2 of the HVAC equipment databases that you have installed, and 1 of "},
        {{update, {1, 0}}, QuestionAnswer::Yes, MainTab::Programs, "Loadcalc 8|An update "},
        {{update, {1, 0}}, QuestionAnswer::No, std::nullopt, "Loadcalc 8|An update is "},
        {{update, {0, 0}}, QuestionAnswer::Yes, std::nullopt, "Loadcalc 8|1.00.0|2.00.0"},
    };
    const StartupRequest request("STARTUP Loadcalc 8");
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.heard);
        m_desktop.Write(m_files->versionList, "[Loadcalc 8]\r\nMajor=9\r\n");
        m_person.heard.clear();
        m_person.answer = row.answer;
        EXPECT_EQ(m_manager->TellCaller(row.findings, request, m_person), row.tab);
        EXPECT_THAT(m_person.heard.front(), testing::StartsWith(row.heard));
        EXPECT_EQ(MFile::FileExists(m_files->versionList), row.tab.has_value());
    }
    EXPECT_THAT(m_person.heard.back(), testing::StartsWith("Reminder to Close Open Programs|"));
    EXPECT_THAT(m_opened, ElementsAre(m_server.Url("/pub/demo/lc8setup.exe")));
    m_person.dialog = DialogAnswer::Close;
    EXPECT_FALSE(m_manager->TellCaller(rows[3].findings, request, m_person));
    EXPECT_EQ(m_opened.size(), 1U);
}

TEST_F(UpdateManagerTest, AfterOpeningTheListsAreFetchedThenTheNamedProgramAndThenThisOneIsToldOf)
{
    m_server.Serve(kVersions,
                   "[Loadcalc 8]\r\nMajor=8\r\nMinor=2\r\nRevision=15\r\n"
                   "Demo URL=http://vendor.example/demo.exe\r\n"
                   "[Update Manager 1]\r\nMajor=2\r\nDemo URL= http://vendor.example/um.exe\r\n");
    m_manager->FillLists();
    m_manager->Programs().List().Select("Loadcalc 8");
    m_person.dialog = DialogAnswer::Download;
    m_manager->RunAfterOpening(StartupRequest("Loadcalc 8"), {1, 4, 12}, m_person);
    EXPECT_THAT(m_person.heard,
                ElementsAre(testing::StartsWith("Need to Update|Loadcalc 8 needs to be updated."),
                            "Update Manager 1|1.04.12|2.00.0",
                            testing::StartsWith("Reminder to Close Open Programs|")));
    EXPECT_THAT(m_opened, ElementsAre("http://vendor.example/um.exe"));

    m_person.heard.clear();
    m_manager->SetAutoConnect(false);
    m_manager->RunAfterOpening(StartupRequest(""), {2, 0, 0}, m_person);
    EXPECT_THAT(m_person.heard, testing::IsEmpty());
    EXPECT_EQ(m_server.CountOf(kVersions), 1);
}

} // namespace
} // namespace velmo
