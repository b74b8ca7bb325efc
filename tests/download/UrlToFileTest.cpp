#include "download/UrlToFile.h"

#include "download/InternetErrorText.h"
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
    std::int32_t Download(const std::string& path, const char* name = "version.ini")
    {
        const std::string file = m_desktop.Folder() + name;
        const Result<std::string> outcome = m_download.Download(m_server.Url(path), file);
        EXPECT_TRUE(!outcome || outcome.Value() == m_desktop.Read(file));
        return outcome ? 0 : outcome.Failure().code;
    }

    test::TemporaryDesktop m_desktop;
    FaultServer m_server;
    platform::HeadlessLoop m_loop;
    std::chrono::steady_clock::time_point m_now;
    UrlToFile m_download{m_loop, {.mostBytes = kMostBytesOfAList}, [this] { return m_now; }};
};

TEST_F(UrlToFileTest, AFailureLeavesTheOldFileAndASuccessReplacesIt)
{
    m_desktop.Write("version.ini", "an older and longer content than the new");
    m_server.Serve("/list", "[Loadcalc 8]\r\nMajor=8\r\n");
    m_server.Serve("/as-large-as-allowed", std::string(kMostBytesOfAList, 'x'));
    m_server.Serve("/larger", std::string(kMostBytesOfAList + 1, 'x'));
    EXPECT_EQ(Download("/missing"), error_code::kNotOnServer);
    EXPECT_EQ(Download("/larger"), error_code::kTooLarge);
    m_server.Serve("/empty", "");
    EXPECT_EQ(Download("/empty"), error_code::kInvalidData);
    EXPECT_EQ(Download("/list", "none\\x.ini"), error_code::kFolderMissing);
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

TEST(InternetErrorTextTest, SentencesKeepTheirTrailingBlanksAndOtherCodesHaveNoDetails)
{
    EXPECT_EQ(InternetErrorText(12007, "unused"), "Server name could not be resolved.");
    for (const std::int32_t code : {0, 112, 12000, 12037, 12152, -1})
    {
        EXPECT_EQ(InternetErrorText(code), "Error details not available.") << code;
    }
    for (std::int32_t code = 12001; code <= 12036; ++code)
    {
        const bool isGap = code >= 12032 && code <= 12035;
        EXPECT_EQ(InternetErrorText(code) == InternetErrorText(0), isGap) << code;
        const bool endsInBlank =
            code == 12011 || code == 12014 || code == 12016 || code == 12021 || code == 12023;
        EXPECT_EQ(InternetErrorText(code).ends_with(' '), endsInBlank) << code;
    }
}

TEST(InternetErrorTextTest, ForAnExtendedErrorTheServerSpeaks)
{
    const std::string silent = "Extended error returned from server.";
    const std::string accents = std::string(255, 'x') + "\xC3\xA9";
    EXPECT_EQ(InternetErrorText(12003), silent);
    EXPECT_EQ(InternetErrorText(12003, std::string_view("\0hidden", 7)), silent);
    EXPECT_EQ(InternetErrorText(12003, std::string_view("500 Down\0hidden", 15)), "500 Down");
    EXPECT_EQ(InternetErrorText(12003, accents + "more"), accents);
}

} // namespace
} // namespace velmo
