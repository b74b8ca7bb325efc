#include "manager/UpdateManager.h"

#include "controls/MousePointer.h"
#include "platform/ErrorCode.h"
#include "platform/HeadlessLoop.h"
#include "platform/MFile.h"
#include "platform/SharedLock.h"
#include "sample/EquipmentDatabaseFile.h"
#include "tests/support/CountedReads.h"
#include "tests/support/FaultServer.h"
#include "tests/support/ProgramDesktop.h"
#include "updates/UpdatePrompts.h"

#include <gmock/gmock.h>

namespace velmo
{
namespace
{

using test::FaultServer;
using testing::ElementsAre;
using testing::HasSubstr;
namespace MFile = platform::MFile;

constexpr const char* kVersions = "/pub/demo/version.ini";
constexpr const char* kManufacturers = "/pub/demo/manufver.ini";

const std::string kAttempting = "Attempting to connect...\r\n";
const std::string kDownloaded = "Version information successfully downloaded\r\n";
const std::string kRefreshed = "Program and database lists have been refreshed\r\n";
const std::string kNotDownloaded = "Version information did not successfully download\r\n";
const std::string kCanceled = "Connection Canceled\r\n";
const std::string kNotFound = "Requested item could not be located.\r\n";

/// A person who answers every question as told.
struct Person final : UpdatePrompts
{
    void Notify(PromptIcon /*icon*/, const std::string& text, const std::string& title) override
    {
        heard.push_back(title + "|" + text);
    }
    QuestionAnswer AskToViewUpdates(const StartupRequest& request,
                                    const std::string& question) override
    {
        heard.push_back(request.caller + "|" + question);
        return answer;
    }
    DialogAnswer ShowUpdateDialog(const ProgramRow& program) override
    {
        heard.push_back(program.Name() + "|" + CellText(program, ProgramColumn::InstalledVersion) +
                        "|" + CellText(program, ProgramColumn::LatestVersion));
        return dialog;
    }

    QuestionAnswer answer = QuestionAnswer::Yes;
    DialogAnswer dialog = DialogAnswer::Download;
    std::vector<std::string> heard;
};

/// An update manager between a vendor's server and a desktop with Loadcalc 8.02.14, and what it tells
/// the window, in order.
class UpdateManagerTest : public test::ProgramDesktop, private ListViewModel::Observer
{
  protected:
    UpdateManagerTest()
    {
        m_desktop.SetPolicy("WebServer", m_server.Url(""));
        Install({8, 2, 14});
        m_server.Serve(kVersions, "[Loadcalc 8]\r\nMajor=8\r\nMinor=2\r\nRevision=15\r\n"
                                  "[News Headlines]\r\nNews|http://vendor.example/\r\n");
        m_server.Serve(kManufacturers, "[Pumps]\r\n1MDBFilename=pumps.mdb\r\n");
        m_manager.emplace(m_loop, m_person, m_pointer, [this](const std::string& address) {
            m_opened.push_back(address);
            return Result<Done>(Done());
        });
        m_files.emplace(m_manager->Lists().Files());
    }
    ~UpdateManagerTest() override { m_manager->Programs().List().Observe(nullptr); }

    void Watch()
    {
        ListsFetch& lists = m_manager->Lists();
        ShownLists& shown = m_manager->Shown();
        StatusBoxModel& box = m_manager->StatusBox();
        m_watching = {
            lists.BusyChanged().Add([&] { m_events.emplace_back(lists.Busy() ? "busy" : "idle"); }),
            shown.CountsChanged().Add([&] {
                m_events.push_back(std::to_string(shown.Counts().programs) + " to update");
            }),
            shown.HeadlinesChanged().Add([&] {
                m_events.push_back(std::to_string(shown.Headlines().size()) + " headlines");
            }),
            box.Changed().Add([&] { m_events.push_back(LastLine(box.Text())); }),
        };
        m_manager->Programs().List().Observe(this);
    }

    static std::string LastLine(std::string text)
    {
        text.resize(text.size() - std::min<std::size_t>(text.size(), 2));
        return text.substr(text.rfind('\n') + 1);
    }

    std::string Fetch()
    {
        m_manager->FetchLists();
        EXPECT_FALSE(m_manager->Lists().Busy());
        EXPECT_EQ(m_pointer.Shape(), PointerShape::Normal);
        return m_manager->StatusBox().Text();
    }

    /// Does it as work of the loop while the next download of that path is held, then lets that answer.
    void WhileHeld(const char* path, const char* status, const std::function<void()>& action)
    {
        // An empty file would be no list.
        m_server.Play(path, {FaultServer::Hold(), FaultServer::Answer(status, "[Loadcalc 8]")[0]});
        OnceAskedFor(path, m_server.CountOf(path) + 1, action);
    }

    void OnceAskedFor(const char* path, int times, const std::function<void()>& action)
    {
        m_loop.Post([this, path, times, action] {
            if (m_server.CountOf(path) < times)
            {
                return OnceAskedFor(path, times, action);
            }
            action();
            m_server.Release(path);
        });
    }

    std::string LatestVersion()
    {
        return CellText(*m_manager->Programs().Find("Loadcalc 8"), ProgramColumn::LatestVersion);
    }

    void OnRowsChanged() override {}
    void OnColumnsChanged() override {}
    void OnSelectionChanged() override {}
    void OnScrollTo(std::size_t row) override
    {
        m_events.push_back("show row " + std::to_string(row));
    }

    FaultServer m_server;
    platform::HeadlessLoop m_loop;
    Person m_person;
    std::vector<std::string> m_opened; ///< In the browser.
    MousePointer m_pointer;
    std::optional<UpdateManager> m_manager;
    std::optional<FetchedFiles> m_files;
    std::vector<std::string> m_events;
    std::vector<Observers::Subscription> m_watching;
};

TEST_F(UpdateManagerTest, AFetchReplacesBothListsAndEverythingFollowsInItsOrder)
{
    m_desktop.Write(m_files->versionList, "[Loadcalc 8]\r\nMajor=9\r\n");
    m_desktop.Write(m_files->manufacturerList, "stale");
    m_manager->FillLists();
    m_manager->Programs().List().Select("Loadcalc 8");
    Watch();
    Fetch();
    EXPECT_THAT(m_events, ElementsAre("0 headlines", "show row 4", "0 to update", "busy", "",
                                      "Attempting to connect...",
                                      "Version information successfully downloaded", "show row 4",
                                      "1 to update", "1 headlines", "show row 0", "show row 4",
                                      "Program and database lists have been refreshed", "idle"));
    EXPECT_TRUE(m_manager->Lists().Succeeded());
    EXPECT_EQ(LatestVersion(), "8.02.15");
    EXPECT_EQ(m_desktop.Read(m_files->manufacturerList), "[Pumps]\r\n1MDBFilename=pumps.mdb\r\n");
    m_manager->DeleteLists();
    EXPECT_FALSE(MFile::FileExists(m_files->versionList));
    EXPECT_FALSE(MFile::FileExists(m_files->manufacturerList));
}

TEST_F(UpdateManagerTest, AFailureIsASentenceAndTheNextFetchWorks)
{
    m_server.Play(kVersions, FaultServer::Answer("500 Out of order"));
    m_desktop.Write(m_files->versionList, "[Loadcalc 8]\r\nMajor=9\r\n");
    Watch();
    EXPECT_EQ(Fetch(), kAttempting + "500 Out of order\r\n");
    EXPECT_EQ(m_events.front() + m_events.at(1), "0 headlines0 to update");
    EXPECT_FALSE(m_manager->Lists().Succeeded());
    EXPECT_EQ(StatusBarText(m_manager->Lists().Report()), "Server not reached: 500 Out of order");
    EXPECT_FALSE(MFile::FileExists(m_files->versionList));
    EXPECT_EQ(m_server.CountOf(kManufacturers), 0);
    EXPECT_THAT(m_desktop.Read("VelmoUpd.log"), HasSubstr(m_server.Url(kVersions)));

    m_server.Serve(kVersions, "[Loadcalc 8]\r\nMajor=8\r\n");
    m_server.Play(kManufacturers, FaultServer::Answer("404 Not Found"));
    EXPECT_EQ(Fetch(), kAttempting + kDownloaded + kRefreshed)
        << "a missing manufacturer list is not mentioned";
    EXPECT_EQ(LatestVersion(), "8.00.0");
}

TEST_F(UpdateManagerTest, AVersionListThatVanishedIsAFailureUnlessTheFetchIsCanceled)
{
    for (const bool cancel : {false, true})
    {
        SCOPED_TRACE(cancel);
        WhileHeld(kManufacturers, "404 Not Found",
                  [this] { EXPECT_TRUE(MFile::DeleteIfExists(m_files->versionList)); });
        StatusBoxModel& box = m_manager->StatusBox();
        const auto watching = box.Changed().Add([&] {
            if (cancel && box.Text().ends_with(kNotDownloaded))
            {
                m_loop.Post([this] { m_manager->Lists().Cancel(); });
            }
        });
        EXPECT_EQ(Fetch(), kAttempting + kNotDownloaded + (cancel ? kCanceled : kNotFound));
        EXPECT_FALSE(m_manager->Lists().Succeeded());
    }
}

TEST_F(UpdateManagerTest, ACancelLetsTheRunningDownloadEndAndNothingOfTheFetchIsUsed)
{
    // Whose download is running, before any when there is none; and how many requests there will be.
    const std::pair<const char*, std::size_t> rows[] = {
        {nullptr, 0}, {kVersions, 1}, {kManufacturers, 2}};
    m_manager->FillLists();
    Watch();
    for (const auto& [path, requests] : rows)
    {
        SCOPED_TRACE(requests);
        const std::size_t before = m_server.Requests().size();
        const auto cancel = [this] {
            m_manager->Reconnect();
            EXPECT_EQ(StatusBarText(m_manager->Lists().Report()),
                      "Canceling after the current file...");
        };
        if (path == nullptr)
        {
            m_loop.Post(cancel);
        }
        else
        {
            m_server.Serve(kVersions, "[Loadcalc 8]\r\nMajor=8\r\nMinor=2\r\nRevision=15\r\n");
            m_server.Play(path, {FaultServer::Hold(), FaultServer::Answer("200 OK", "[x]")[0]});
            OnceAskedFor(path, m_server.CountOf(path) + 1, cancel);
        }
        m_events.clear();
        EXPECT_EQ(Fetch(), kAttempting + kCanceled);
        EXPECT_THAT(m_events,
                    ElementsAre("0 headlines", "0 to update", "busy", "",
                                "Attempting to connect...", "Connection Canceled", "idle"));
        EXPECT_EQ(m_server.Requests().size(), before + requests);
        EXPECT_FALSE(m_manager->Lists().Succeeded());
        EXPECT_EQ(LatestVersion(), "?");
        EXPECT_EQ(m_manager->Lists().Bytes().versions, "");
    }
    m_server.Serve(kManufacturers, "[Pumps]\r\n1MDBFilename=pumps.mdb\r\n");
    m_manager->Lists().Cancel();
    EXPECT_EQ(Fetch(), kAttempting + kDownloaded + kRefreshed) << "nothing to cancel";
}

TEST_F(UpdateManagerTest, ASecondFetchDuringTheFirstDoesNothing)
{
    WhileHeld(kVersions, "200 OK", [this] {
        m_manager->FetchLists();
        EXPECT_EQ(m_manager->StatusBox().Text(), kAttempting);
        EXPECT_TRUE(m_manager->Lists().Busy());
        EXPECT_EQ(m_pointer.Shape(), PointerShape::ArrowAndHourglass);
    });
    EXPECT_EQ(Fetch(), kAttempting + kDownloaded + kRefreshed);
    EXPECT_EQ(m_server.CountOf(kVersions), 1);
}

TEST_F(UpdateManagerTest, AFetchWaitsForAnotherOneOfTheDesktopAndAPersonCanEndThat)
{
    auto other = std::optional(platform::SharedLock::Take(m_files->lock, {}));
    ASSERT_TRUE(*other);
    m_desktop.Write(m_files->versionList, "the other's");
    const auto watching = m_manager->Lists().ReportChanged().Add([&] {
        if (m_manager->Lists().Report().stage == FetchStage::Waiting)
        {
            EXPECT_EQ(m_desktop.Read(m_files->versionList), "the other's");
            EXPECT_TRUE(m_server.Requests().empty());
            m_loop.Post([&] {
                m_person.answer == QuestionAnswer::No ? m_manager->Reconnect() : other.reset();
            });
        }
    });
    m_person.answer = QuestionAnswer::No;
    EXPECT_EQ(Fetch(), kAttempting + kCanceled);
    EXPECT_EQ(m_desktop.Read(m_files->versionList), "the other's");
    m_manager->DeleteLists();
    EXPECT_EQ(m_desktop.Read(m_files->versionList), "the other's") << "it deletes them itself";
    m_person.answer = QuestionAnswer::Yes;
    EXPECT_EQ(Fetch(), kAttempting + kDownloaded + kRefreshed);
}

TEST_F(UpdateManagerTest, WithoutTheLockTheListsAreHadAllTheSameAndTheFilesLeftAlone)
{
    const auto other = platform::SharedLock::Take(m_files->lock, {});
    ASSERT_TRUE(other);
    m_desktop.Write(m_files->versionList, "the other's");
    // It tells that it runs before it waits, and again when it has waited.
    int runs = 0;
    const auto watching = m_manager->Lists().ReportChanged().Add([&] {
        if (m_manager->Lists().Report().stage == FetchStage::Running)
        {
            m_manager->Lists().EndBy(std::chrono::steady_clock::now() +
                                     std::chrono::milliseconds(++runs == 1 ? 20 : 3'600'000));
        }
    });
    EXPECT_EQ(Fetch(), kAttempting + kDownloaded + kRefreshed);
    EXPECT_EQ(LatestVersion(), "8.02.15");
    EXPECT_EQ(m_desktop.Read(m_files->versionList), "the other's");
    EXPECT_THAT(LogText(), HasSubstr("The list files are left alone"));
}

TEST_F(UpdateManagerTest, APageInAListsPlaceIsToldAndNoListIsReadTwice)
{
    const std::string page = "<html><body>[Sign in]</body></html>";
    const auto reports = [&](const std::string& versions, const std::string& manufacturers) {
        m_server.Serve(kVersions, versions);
        m_server.Serve(kManufacturers, manufacturers);
        EXPECT_EQ(Fetch(), kAttempting + kDownloaded + kRefreshed);
        return StatusBarText(m_manager->Lists().Report());
    };
    const std::string versions = "[Loadcalc 8]\r\nMajor=8\r\n";
    EXPECT_EQ(reports(page, page),
              "The lists could not be read: what the server sent is no version list");
    EXPECT_FALSE(m_manager->Lists().Succeeded());
    EXPECT_THAT(reports(versions, page),
                testing::MatchesRegex("Checked .*M. The equipment list could not be read: what the "
                                      "server sent is no manufacturer list"));
    (void)test::TakeCountedReads();
    EXPECT_THAT(reports(versions, "[Pumps]\r\n1MDBFilename=pumps.mdb\r\n"),
                testing::MatchesRegex("Checked .*/.*/.* .*:.. .M"));
    for (const auto& [file, reads] : test::TakeCountedReads())
    {
        EXPECT_LE(reads, 2) << file;
    }
    EXPECT_THAT(m_desktop.Read("VelmoUpd.log"), HasSubstr("is no version list"));
}

TEST_F(UpdateManagerTest, WhatAnotherRunLeftIsTakenAsOfThen)
{
    m_desktop.Write(m_files->versionList, "[Loadcalc 8]\r\nMajor=9\r\n");
    m_desktop.Write(m_files->manufacturerList,
                    "[Manufver General]\r\n[Pumps]\r\n1MDBFilename=p\r\n");
    EXPECT_TRUE(MFile::SetModificationTime(
        m_files->versionList,
        std::chrono::sys_days(std::chrono::year(2026) / 11 / 20) + std::chrono::hours(12)));
    m_manager->FillLists();
    EXPECT_EQ(LatestVersion(), "9.00.0");
    EXPECT_EQ(m_manager->Equipment().Grid().Rows().rows.size(), 1U);
    EXPECT_EQ(m_desktop.Read(m_files->manufacturerList), "[Pumps]\r\n1MDBFilename=p\r\n");
    EXPECT_THAT(StatusBarText(m_manager->Lists().Report()), testing::StartsWith("Checked 11/2"));
}

TEST(FetchReportTest, AFailureIsTheEndOfASentence)
{
    const std::pair<Error, const char*> rows[] = {
        {{error_code::kTimedOut, "x"}, "Server not reached: the request timed out"},
        {{error_code::kCannotConnect, "x"},
         "Server not reached: attempt to connect to the server failed"},
        {{error_code::kInvalidAddress, "x"}, "Server not reached: URL is invalid"},
        {{error_code::kServerSaysWhy, "503 Out."}, "Server not reached: 503 Out"},
        {{error_code::kUntrustedCertificate, "Not to be trusted."},
         "Server not reached: not to be trusted"},
        {{error_code::kDiskFull, "Disk full"}, "The lists could not be read: disk full"},
        {{error_code::kNone, ""}, "The lists could not be read: error details not available"},
    };
    for (const auto& [error, text] : rows)
    {
        EXPECT_EQ(StatusBarText({.stage = FetchStage::Failed, .reason = error}), text);
    }
    EXPECT_EQ(StatusBarText({}), "Not checked yet");
}

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
