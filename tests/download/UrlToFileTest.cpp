#include "download/UrlToFile.h"

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
    test::TemporaryDesktop m_desktop;
    FaultServer m_server;
    platform::HeadlessLoop m_loop;
    std::string m_path = m_desktop.Folder() + "version.ini";
    UrlToFile m_download{m_loop};
};

TEST_F(UrlToFileTest, TheFileHoldsWhatTheServerSent)
{
    m_server.Serve("/list", "[Loadcalc 8]\r\nMajor=8\r\n");
    m_server.Serve("/empty", "");
    m_desktop.Write("version.ini", "an older and much longer content than the new one has");
    EXPECT_TRUE(m_download.Download(m_server.Url("/list"), m_path));
    EXPECT_EQ(m_desktop.Read("version.ini"), "[Loadcalc 8]\r\nMajor=8\r\n");
    EXPECT_TRUE(m_download.Download(m_server.Url("/empty"), m_path));
    EXPECT_EQ(m_desktop.Read("version.ini"), "");
    EXPECT_EQ(MFile::FileNames(m_desktop.Folder()).size(), 1U);
}

TEST_F(UrlToFileTest, AFailureLeavesTheFileAloneAndKeepsItsReason)
{
    m_desktop.Write("version.ini", "old");
    m_server.Play("/broken", FaultServer::Answer("500 Out of order"));
    m_server.Play("/short", {FaultServer::Head(100), FaultServer::Send("abc")});
    m_server.Serve("/large", std::string(UrlToFile::kMostBytesOfAList + 1, 'x'));
    constexpr std::pair<const char*, std::int32_t> kRows[] = {
        {"/missing", 12028}, {"/short", 12030}, {"/large", 223}, {"/broken", 12003}};
    for (const auto& [path, code] : kRows)
    {
        SCOPED_TRACE(path);
        EXPECT_FALSE(m_download.Download(m_server.Url(path), m_path));
        EXPECT_EQ(m_download.LastError().code, code);
        EXPECT_EQ(m_desktop.Read("version.ini"), "old");
    }
    EXPECT_EQ(m_download.LastError().description, "500 Out of order");
    m_server.Serve("/list", "new");
    EXPECT_FALSE(m_download.Download(m_server.Url("/list"), m_desktop.Folder() + "none\\x.ini"));
    EXPECT_EQ(m_download.LastError().code, 3);
    EXPECT_TRUE(m_download.Download(m_server.Url("/list"), m_path));
    EXPECT_EQ(m_download.LastError().code, 0);
}

TEST_F(UrlToFileTest, TheLoopLivesWhileTheCallWaits)
{
    m_server.Play("/list", {FaultServer::Head(3), FaultServer::Hold(), FaultServer::Send("abc")});
    m_loop.Post([this] { m_server.Release("/list"); });
    EXPECT_TRUE(m_download.Download(m_server.Url("/list"), m_path));
    EXPECT_EQ(m_desktop.Read("version.ini"), "abc");
}

TEST_F(UrlToFileTest, WhenTheTimeIsOverADownloadIsGivenUpAndNoneIsStarted)
{
    m_server.Play("/silent", {FaultServer::Hold()});
    m_server.Serve("/list", "new");
    m_download.EndBy(std::chrono::steady_clock::now() + std::chrono::milliseconds(200));
    EXPECT_FALSE(m_download.Download(m_server.Url("/silent"), m_path));
    EXPECT_EQ(m_download.LastError().code, 12002);
    EXPECT_FALSE(m_download.Download(m_server.Url("/list"), m_path));
    EXPECT_EQ(m_download.LastError().code, 12002);
    EXPECT_EQ(m_server.CountOf("/list"), 0);
    EXPECT_FALSE(MFile::FileExists(m_path));
}

} // namespace
} // namespace velmo
