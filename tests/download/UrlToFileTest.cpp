#include "download/UrlToFile.h"

#include "platform/ErrorCode.h"
#include "platform/HeadlessLoop.h"
#include "platform/MFile.h"
#include "tests/support/FaultServer.h"
#include "tests/support/TemporaryDesktop.h"

#include <gtest/gtest.h>

namespace velmo
{
namespace
{

using test::FaultServer;
namespace MFile = platform::MFile;

class UrlToFileTest : public testing::Test
{
  protected:
    /// The error's code, 0 when the file is there.
    std::int32_t Download(const std::string& path) { return Download(path, m_path); }

    std::int32_t Download(const std::string& path, const std::string& file)
    {
        const Result<Done> outcome = m_download.Download(m_server.Url(path), file);
        return outcome ? 0 : outcome.Failure().code;
    }

    test::TemporaryDesktop m_desktop;
    FaultServer m_server;
    platform::HeadlessLoop m_loop;
    std::chrono::steady_clock::time_point m_now;
    UrlToFile m_download{m_loop, {.mostBytes = kMostBytesOfAList}, [this] { return m_now; }};
    std::string m_path = m_desktop.Write("version.ini", "an older and longer content than the new");
};

TEST_F(UrlToFileTest, AFailureLeavesTheOldFileAndASuccessReplacesIt)
{
    m_server.Serve("/list", "[Loadcalc 8]\r\nMajor=8\r\n");
    m_server.Serve("/as-large-as-allowed", std::string(kMostBytesOfAList, 'x'));
    m_server.Serve("/larger", std::string(kMostBytesOfAList + 1, 'x'));
    EXPECT_EQ(Download("/missing"), error_code::kNotOnServer);
    EXPECT_EQ(Download("/larger"), error_code::kTooLarge);
    m_server.Serve("/empty", "");
    EXPECT_EQ(Download("/empty"), error_code::kInvalidData);
    EXPECT_EQ(Download("/list", m_desktop.Folder() + "none\\x.ini"), error_code::kFolderMissing);
    EXPECT_EQ(m_desktop.Read("version.ini"), "an older and longer content than the new");
    EXPECT_EQ(Download("/list"), 0);
    EXPECT_EQ(m_desktop.Read("version.ini"), "[Loadcalc 8]\r\nMajor=8\r\n");
    EXPECT_EQ(MFile::FileNames(m_desktop.Folder()).size(), 1U);
    EXPECT_EQ(Download("/as-large-as-allowed"), 0);
}

TEST_F(UrlToFileTest, TheLoopLivesWhileTheCallWaits)
{
    m_server.Play("/list", {FaultServer::Head(3), FaultServer::Hold(), FaultServer::Send("abc")});
    m_loop.Post([this] { m_server.Release("/list"); });
    EXPECT_EQ(m_download.Read(m_server.Url("/list")).Value(), "abc");
}

TEST_F(UrlToFileTest, ACancelEndsTheRunningDownloadOnly)
{
    m_server.Play("/held", {FaultServer::Head(3), FaultServer::Send("a"), FaultServer::Hold()});
    m_server.Serve("/list", "abc");
    m_download.Cancel();
    EXPECT_EQ(Download("/list"), 0);
    m_loop.Post([this] { m_download.Cancel(); });
    EXPECT_EQ(Download("/held"), error_code::kCancelled);
    EXPECT_EQ(Download("/list"), 0);
}

TEST_F(UrlToFileTest, WhenTheTimeIsOverADownloadIsGivenUpAndNoneIsStarted)
{
    m_server.Play("/silent", {FaultServer::Hold()});
    m_server.Serve("/list", "new");
    m_download.EndBy(m_now + std::chrono::milliseconds(1));
    EXPECT_EQ(Download("/silent"), error_code::kTimedOut);
    m_now += std::chrono::milliseconds(1);
    EXPECT_EQ(Download("/list"), error_code::kTimedOut);
    EXPECT_EQ(m_server.CountOf("/list"), 0);
}

} // namespace
} // namespace velmo
