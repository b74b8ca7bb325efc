#include "updates/ListsDownload.h"

#include "controls/MousePointer.h"
#include "controls/StatusBoxModel.h"
#include "download/UrlToFile.h"
#include "platform/HeadlessLoop.h"
#include "platform/MFile.h"
#include "settings/DiagnosticLog.h"
#include "tests/support/DeadPort.h"
#include "tests/support/FaultServer.h"
#include "tests/support/TemporaryDesktop.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <memory>

namespace velmo
{
namespace
{

using test::FaultServer;
using testing::ElementsAre;
namespace MFile = platform::MFile;

constexpr const char* kVersions = "/pub/demo/version.ini";
constexpr const char* kManufacturers = "/pub/demo/manufver.ini";

const std::string kAttempting = "Attempting to connect...\r\n";
const std::string kDownloaded = "Version information successfully downloaded\r\n";
const std::string kRefreshed = "Program and database lists have been refreshed\r\n";
const std::string kNotDownloaded = "Version information did not successfully download\r\n";
const std::string kCanceled = "Connection Canceled\r\n";
const std::string kNotFound = "Requested item could not be located.\r\n";

class ListsDownloadTest : public testing::Test, protected ListsDownloadClient
{
  protected:
    ListsDownloadTest()
    {
        m_server.Serve(kVersions, "[Loadcalc 8]\r\nMajor=8\r\n");
        m_server.Serve(kManufacturers, "[Pumps]\r\n");
    }

    /// The status box after a fetch from that server, the lists' own one by default.
    std::string Fetch(const std::string& webServer = "")
    {
        m_lists = std::make_unique<ListsDownload>(
            m_files, VendorServer{webServer.empty() ? m_server.Url("") : webServer, ""},
            m_urlToFile, m_loop, m_statusBox, m_pointer, m_log);
        m_lists->Fetch(*this);
        EXPECT_FALSE(m_lists->Busy());
        EXPECT_EQ(m_pointer.Shape(), PointerShape::Normal);
        return m_statusBox.Text();
    }

    /// Does it as work of the loop while the next download of that path is held, then lets it go on.
    void WhileHeld(const char* path, std::function<void()> action)
    {
        OnceAskedFor(path, m_server.CountOf(path) + 1, std::move(action));
    }

    void OnceAskedFor(const char* path, int times, std::function<void()> action)
    {
        m_loop.Post([this, path, times, action] {
            if (m_server.CountOf(path) < times)
            {
                OnceAskedFor(path, times, action);
                return;
            }
            action();
            m_server.Release(path);
        });
    }

    /// Answers so, but not before WhileHeld() was there.
    void Hold(const char* path, const char* status)
    {
        m_server.Play(path, {FaultServer::Hold(), FaultServer::Answer(status)[0]});
    }

    void RemoveVersionList() const { EXPECT_TRUE(MFile::DeleteIfExists(m_files.versionList)); }

    void ClearHeadlines() override { m_calls.emplace_back("clear headlines"); }
    void RefreshLists() override
    {
        m_calls.emplace_back(MFile::FileExists(m_files.versionList) ? "refresh" : "refresh, none");
        EXPECT_TRUE(m_lists->Busy());
        EXPECT_EQ(m_pointer.Shape(), PointerShape::ArrowAndHourglass);
    }
    void LoadHeadlines() override { m_calls.emplace_back("load headlines"); }
    void ShowSelectedProgram() override { m_calls.emplace_back("show selected"); }
    void RedrawProgramList() override { m_calls.emplace_back("redraw"); }
    void OnBusyChanged(bool busy) override
    {
        m_calls.emplace_back(busy ? "busy" : "idle");
        EXPECT_EQ(m_lists->Busy(), busy);
    }

    const test::TemporaryDesktop m_desktop;
    FaultServer m_server;
    DiagnosticLog m_log{""};
    platform::HeadlessLoop m_loop;
    UrlToFile m_urlToFile{m_loop};
    StatusBoxModel m_statusBox;
    MousePointer m_pointer;
    ListFiles m_files{m_desktop.Folder()};
    std::unique_ptr<ListsDownload> m_lists;
    std::vector<std::string> m_calls;
};

TEST_F(ListsDownloadTest, AFetchReplacesBothListsAndRefreshesFromThem)
{
    m_desktop.Write("version.ini", "stale");
    m_desktop.Write("manufver.ini", "stale");
    EXPECT_EQ(Fetch(), kAttempting + kDownloaded + kRefreshed);
    EXPECT_TRUE(m_lists->Succeeded());
    EXPECT_THAT(m_calls, ElementsAre("clear headlines", "refresh, none", "busy", "refresh",
                                     "load headlines", "show selected", "redraw", "idle"));
    EXPECT_EQ(m_desktop.Read("version.ini"), "[Loadcalc 8]\r\nMajor=8\r\n");
    EXPECT_EQ(m_desktop.Read("manufver.ini"), "[Pumps]\r\n");
}

TEST_F(ListsDownloadTest, AFailureIsASentenceAndTheNextFetchWorks)
{
    m_desktop.Write("version.ini", "stale");
    const struct
    {
        const char* name;
        FaultServer::Script script;
        std::string sentence;
    } rows[] = {
        {"not found", FaultServer::Answer("404 Not Found"), kNotFound},
        {"out of order", FaultServer::Answer("500 Out of order"), "500 Out of order\r\n"},
        {"cut",
         {FaultServer::Head(100), FaultServer::Send("[Load")},
         "Connection with the server has been terminated.\r\n"},
        {"too large",
         {FaultServer::Head(100U << 20), FaultServer::Send(std::string(1U << 20, 'x'), 100)},
         "Error details not available.\r\n"},
    };
    for (const auto& row : rows)
    {
        SCOPED_TRACE(row.name);
        m_server.Play(kVersions, row.script);
        m_calls.clear();
        EXPECT_EQ(Fetch(), kAttempting + row.sentence);
        EXPECT_FALSE(m_lists->Succeeded());
        EXPECT_EQ(m_lists->LastErrorText() + "\r\n", row.sentence);
        EXPECT_THAT(m_calls,
                    ElementsAre("clear headlines", "refresh, none", "busy", "redraw", "idle"));
        EXPECT_FALSE(MFile::FileExists(m_files.versionList));
        EXPECT_EQ(m_server.CountOf(kManufacturers), 0);
    }
    EXPECT_EQ(Fetch("http://127.0.0.1:" + std::to_string(test::ClosedPort())),
              kAttempting + "Attempt to connect to the server failed.\r\n");
    m_server.Serve(kVersions, "");
    EXPECT_EQ(Fetch(), kAttempting + kDownloaded + kRefreshed);
}

TEST_F(ListsDownloadTest, AMissingManufacturerListIsNotMentioned)
{
    m_desktop.Write("manufver.ini", "stale");
    m_server.Play(kManufacturers, FaultServer::Answer("404 Not Found"));
    EXPECT_EQ(Fetch(), kAttempting + kDownloaded + kRefreshed);
    EXPECT_TRUE(m_lists->Succeeded());
    EXPECT_FALSE(MFile::FileExists(m_files.manufacturerList));
}

TEST_F(ListsDownloadTest, AVersionListThatVanishedIsAFailure)
{
    Hold(kManufacturers, "404 Not Found");
    WhileHeld(kManufacturers, [this] { RemoveVersionList(); });
    EXPECT_EQ(Fetch(), kAttempting + kNotDownloaded + kNotFound);
    EXPECT_FALSE(m_lists->Succeeded());
}

TEST_F(ListsDownloadTest, ACancelBeforeTheFirstDownloadAsksForNothing)
{
    m_loop.Post([this] { m_lists->Cancel(); });
    EXPECT_EQ(Fetch(), kAttempting + kCanceled);
    EXPECT_TRUE(m_server.Requests().empty());
    EXPECT_THAT(m_calls, ElementsAre("clear headlines", "refresh, none", "busy", "idle"));
}

TEST_F(ListsDownloadTest, ACancelLetsARunningDownloadFinish)
{
    for (const char* path : {kVersions, kManufacturers})
    {
        SCOPED_TRACE(path);
        m_calls.clear();
        Hold(path, "200 OK");
        WhileHeld(path, [this] { m_lists->Cancel(); });
        EXPECT_EQ(Fetch(), kAttempting + kCanceled);
        EXPECT_TRUE(MFile::FileExists(m_files.versionList));
        EXPECT_FALSE(m_lists->Succeeded());
        EXPECT_THAT(m_calls, ElementsAre("clear headlines", "refresh, none", "busy", "idle"));
        m_server.Serve(path, "");
    }
}

TEST_F(ListsDownloadTest, ACancelHidesTheErrorThatFollows)
{
    Hold(kVersions, "404 Not Found");
    WhileHeld(kVersions, [this] { m_lists->Cancel(); });
    EXPECT_EQ(Fetch(), kAttempting + kCanceled);
}

TEST_F(ListsDownloadTest, ACancelHidesTheErrorOfAVanishedList)
{
    Hold(kManufacturers, "404 Not Found");
    WhileHeld(kManufacturers, [this] { RemoveVersionList(); });
    m_statusBox.Observe([this] {
        if (m_statusBox.Text().ends_with(kNotDownloaded))
        {
            m_loop.Post([this] { m_lists->Cancel(); });
        }
    });
    EXPECT_EQ(Fetch(), kAttempting + kNotDownloaded + kCanceled);
}

TEST_F(ListsDownloadTest, ACancelWithoutAFetchHasNoEffectOnTheNext)
{
    Fetch();
    m_lists->Cancel();
    m_lists->Fetch(*this);
    EXPECT_EQ(m_statusBox.Text(), kAttempting + kDownloaded + kRefreshed);
}

TEST_F(ListsDownloadTest, ASecondFetchDuringTheFirstDoesNothing)
{
    Hold(kVersions, "200 OK");
    WhileHeld(kVersions, [this] {
        m_lists->Fetch(*this);
        EXPECT_EQ(m_statusBox.Text(), kAttempting);
        EXPECT_TRUE(m_lists->Busy());
    });
    EXPECT_EQ(Fetch(), kAttempting + kDownloaded + kRefreshed);
    EXPECT_EQ(m_server.CountOf(kVersions), 1);
}

} // namespace
} // namespace velmo
