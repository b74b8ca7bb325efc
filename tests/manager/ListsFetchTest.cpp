#include "manager/ListsFetch.h"

#include "platform/ErrorCode.h"
#include "platform/MFile.h"
#include "platform/SharedLock.h"
#include "tests/manager/ManagerDesktop.h"
#include "tests/support/CountedReads.h"

namespace velmo
{
namespace
{

using test::FaultServer;
using test::kManufacturers;
using test::kVersions;
using testing::ElementsAre;
using testing::HasSubstr;
namespace MFile = platform::MFile;

const std::string kAttempting = "Attempting to connect...\r\n";
const std::string kDownloaded = "Version information successfully downloaded\r\n";
const std::string kRefreshed = "Program and database lists have been refreshed\r\n";
const std::string kNotDownloaded = "Version information did not successfully download\r\n";
const std::string kCanceled = "Connection Canceled\r\n";
const std::string kNotFound = "Requested item could not be located.\r\n";

class ListsFetchTest : public test::ManagerDesktop
{};

TEST_F(ListsFetchTest, AFetchReplacesBothListsAndEverythingFollowsInItsOrder)
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
    EXPECT_TRUE(m_manager->Lists().Report().Succeeded());
    EXPECT_EQ(LatestVersion(), "8.02.15");
    EXPECT_EQ(m_desktop.Read(m_files->manufacturerList), "[Pumps]\r\n1MDBFilename=pumps.mdb\r\n");
    m_manager->DeleteLists();
    EXPECT_FALSE(MFile::FileExists(m_files->versionList));
    EXPECT_FALSE(MFile::FileExists(m_files->manufacturerList));
}

TEST_F(ListsFetchTest, AFailureIsASentenceAndTheNextFetchWorks)
{
    m_server.Play(kVersions, FaultServer::Answer("500 Out of order"));
    m_desktop.Write(m_files->versionList, "[Loadcalc 8]\r\nMajor=9\r\n");
    Watch();
    EXPECT_EQ(Fetch(), kAttempting + "500 Out of order\r\n");
    EXPECT_EQ(m_events.front() + m_events.at(1), "0 headlines0 to update");
    EXPECT_FALSE(m_manager->Lists().Report().Succeeded());
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

TEST_F(ListsFetchTest, AVersionListThatVanishedIsAFailureUnlessTheFetchIsCanceled)
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
        EXPECT_FALSE(m_manager->Lists().Report().Succeeded());
    }
}

TEST_F(ListsFetchTest, ACancelLetsTheRunningDownloadEndAndNothingOfTheFetchIsUsed)
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
        EXPECT_FALSE(m_manager->Lists().Report().Succeeded());
        EXPECT_EQ(LatestVersion(), "?");
        EXPECT_EQ(m_manager->Lists().Bytes().versions, "");
    }
    m_server.Serve(kManufacturers, "[Pumps]\r\n1MDBFilename=pumps.mdb\r\n");
    m_manager->Lists().Cancel();
    EXPECT_EQ(Fetch(), kAttempting + kDownloaded + kRefreshed) << "nothing to cancel";
}

TEST_F(ListsFetchTest, ASecondFetchDuringTheFirstDoesNothing)
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

TEST_F(ListsFetchTest, AFetchWaitsForAnotherOneOfTheDesktopAndAPersonCanEndThat)
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

TEST_F(ListsFetchTest, WithoutTheLockTheListsAreHadAllTheSameAndTheFilesLeftAlone)
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

TEST_F(ListsFetchTest, APageInAListsPlaceIsToldAndNoListIsReadTwice)
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
    EXPECT_FALSE(m_manager->Lists().Report().Succeeded());
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

TEST_F(ListsFetchTest, WhatAnotherRunLeftIsTakenAsOfThen)
{
    m_desktop.Write(m_files->versionList, "[Loadcalc 8]\r\nMajor=9\r\n");
    m_desktop.Write(m_files->manufacturerList,
                    "[Manufver General]\r\n[Pumps]\r\n1MDBFilename=p\r\n");
    EXPECT_TRUE(MFile::SetModificationTime(
        m_files->versionList,
        std::chrono::sys_days(std::chrono::year(2026) / 11 / 20) + std::chrono::hours(12)));
    auto other = std::optional(platform::SharedLock::Take(m_files->lock, {}));
    m_manager->FillLists();
    EXPECT_THAT(m_desktop.Read(m_files->manufacturerList), testing::StartsWith("[Manufver"));
    EXPECT_EQ(LatestVersion(), "9.00.0");
    EXPECT_EQ(m_manager->Equipment().Grid().Rows().rows.size(), 1U);
    other.reset();
    m_manager->FillLists();
    EXPECT_EQ(m_desktop.Read(m_files->manufacturerList), "[Pumps]\r\n1MDBFilename=p\r\n");
    EXPECT_THAT(StatusBarText(m_manager->Lists().Report()), testing::StartsWith("Checked 11/2"));
}

TEST_F(ListsFetchTest, AnEquipmentListThatAnotherRunDidNotLeaveOrThatCannotBeReadIsTold)
{
    const std::string inAFolder = m_files->manufacturerList + "\\x"; // Where the file should be.
    for (const bool isMissing : {true, false})
    {
        SCOPED_TRACE(isMissing);
        m_manager->DeleteLists();
        m_desktop.Write(m_files->versionList, "[Loadcalc 8]\r\nMajor=9\r\n");
        if (!isMissing)
        {
            m_desktop.Write(inAFolder, "");
        }
        m_manager->Lists().TakeFiles();
        EXPECT_THAT(StatusBarText(m_manager->Lists().Report()),
                    HasSubstr("M. The equipment list could not be read: "));
        EXPECT_EQ(LogText().find("Reading " + m_files->manufacturerList) == std::string::npos,
                  isMissing);
    }
    EXPECT_TRUE(MFile::DeleteIfExists(inAFolder));
    EXPECT_TRUE(MFile::RemoveFolder(m_files->manufacturerList));
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

} // namespace
} // namespace velmo
