#include "download/NetGrab.h"

#include "download/InternetErrorText.h"
#include "download/UrlToFile.h"
#include "platform/ErrorCode.h"
#include "platform/HeadlessLoop.h"
#include "platform/MFile.h"
#include "tests/support/FaultServer.h"
#include "tests/support/TemporaryDesktop.h"

#include <gmock/gmock.h>

#include <atomic>
#include <functional>
#include <string>
#include <tuple>
#include <vector>

namespace velmo
{
namespace
{

using test::FaultServer;
using testing::ElementsAre;
namespace MFile = platform::MFile;

constexpr std::int32_t kFresh = 16;

class NetGrabTest : public testing::Test, public NetGrab::Listener
{
  protected:
    void Start(const std::string& path) { m_grab.DownloadStart(m_server.Url(path), kFresh); }

    void AwaitEnd()
    {
        m_loop.RunUntil([this] { return !m_grab.Busy(); });
    }

    void Fetch(const std::string& path)
    {
        Start(path);
        AwaitEnd();
    }

    [[nodiscard]] std::string Text() const
    {
        return {reinterpret_cast<const char*>(m_grab.Bytes().data()), m_grab.Bytes().size()};
    }

    void DownloadComplete(std::int32_t nBytes) override
    {
        EXPECT_FALSE(m_grab.Busy());
        m_ends.push_back("complete " + std::to_string(nBytes));
    }

    void DownloadFailed(std::int32_t errNum, const std::string& errDesc) override
    {
        EXPECT_FALSE(m_grab.Busy());
        EXPECT_NE(errDesc, "");
        m_ends.push_back("failed " + std::to_string(errNum));
    }

    void DownloadProgress(std::int32_t nBytes) override
    {
        EXPECT_TRUE(m_grab.Busy());
        EXPECT_EQ(m_grab.Bytes().size(), static_cast<std::size_t>(nBytes));
        ++m_notices;
        m_onProgress();
    }

    test::TemporaryDesktop m_desktop;
    FaultServer m_server;
    platform::HeadlessLoop m_loop;
    std::atomic<std::uint32_t> m_tick = 1000;
    NetGrab m_grab{m_loop, *this, [this] { return m_tick.load(); }};
    std::vector<std::string> m_ends;
    std::function<void()> m_onProgress = [] {};
    int m_notices = 0;
    std::string m_path = m_desktop.Folder() + "setup.exe";
};

TEST_F(NetGrabTest, WhatHasArrivedReplacesTheFormerBytesOnlyThenAndStaysInItsPlace)
{
    m_server.Serve("/x", "content");
    m_server.Play("/held", {FaultServer::Head(10), FaultServer::Send("first"), FaultServer::Hold(),
                            FaultServer::Send("later")});
    Fetch("/x");
    Start("/held");
    EXPECT_EQ(Text(), "content");
    std::string seen;
    const std::byte* place = nullptr;
    m_onProgress = [&] {
        if (seen.empty()) // A slow machine tells of the rest too.
        {
            seen = Text();
            place = m_grab.Bytes().data();
            m_server.Release("/held");
        }
    };
    AwaitEnd();
    EXPECT_EQ(seen, "first");
    EXPECT_EQ(Text(), "firstlater");
    EXPECT_EQ(m_grab.Bytes().data(), place);
}

TEST_F(NetGrabTest, CancellingLeavesItBusyUntilTheFailureArrives)
{
    m_server.Play("/held",
                  {FaultServer::Head(10), FaultServer::Send("first"), FaultServer::Hold()});
    m_grab.DownloadCancel(); // Nothing runs: nothing happens.
    Start("/held");
    m_grab.DownloadCancel();
    AwaitEnd();
    Start("/held");
    m_onProgress = [this] {
        m_grab.DownloadCancel();
        EXPECT_TRUE(m_grab.Busy());
    };
    AwaitEnd();
    EXPECT_THAT(m_ends, ElementsAre("failed 12017", "failed 12017"));
}

TEST_F(NetGrabTest, ANewStartReplacesTheRunningDownloadUnlessItHasNoAddress)
{
    m_server.Play("/held", {FaultServer::Hold()});
    m_server.Serve("/x", "content");
    Start("/held");
    m_server.AwaitRequest("/held");
    m_grab.DownloadStart("", kFresh);
    EXPECT_TRUE(m_grab.Busy());
    Fetch("/x");
    m_grab.DownloadStart("", kFresh);
    EXPECT_FALSE(m_grab.Busy());
    m_loop.Yield();
    EXPECT_EQ(Text(), "content");
    EXPECT_THAT(m_ends, ElementsAre("complete 7"));
}

TEST_F(NetGrabTest, DurationIsTheTicksFromStartToEnd)
{
    m_server.Play("/drip", {FaultServer::Head(50), FaultServer::Drip(std::string(50, 'x'))});
    Fetch("/drip");
    EXPECT_EQ(m_notices, 1) << "what comes within fifty ticks is told at once, and the clock stood";
    const std::tuple<std::uint32_t, std::uint32_t, std::int32_t> rows[] = {
        {1000, 1250, 250},
        {0, 40, 39},                // 0 would read as idle; such a start counts as 1.
        {0xFFFFFFF0U, 0x10U, 0x20}, // Across the counter's wrap.
        {500, 400, 100},
    };
    m_server.Play("/x", {FaultServer::Head(1), FaultServer::Hold(), FaultServer::Send("x")});
    m_server.Release("/x");
    for (const auto& [start, end, duration] : rows)
    {
        SCOPED_TRACE(start);
        m_tick = start;
        Start("/x");
        EXPECT_TRUE(m_grab.Busy());
        EXPECT_EQ(m_grab.Duration(), 0);
        m_tick = end;
        AwaitEnd();
        EXPECT_EQ(m_grab.Duration(), duration);
    }
}

TEST_F(NetGrabTest, SavingReplacesTheFileWholeOrTellsTheSystemsReasonAndAFailureLeavesNoBytes)
{
    m_desktop.Write("setup.exe", "an older and longer content");
    const std::string binary("M\0Z\r\n\x1a", 6);
    m_server.Serve("/x", binary);
    m_server.Play("/short", {FaultServer::Head(8), FaultServer::Send("1234567")});
    EXPECT_FALSE(m_grab.SaveAs(m_path));
    Fetch("/x");
    EXPECT_FALSE(m_grab.SaveAs(m_desktop.Folder() + "none\\setup.exe"));
    EXPECT_EQ(m_grab.LastSaveFailure().code, 3);
    EXPECT_TRUE(m_grab.SaveAs(m_path));
    EXPECT_EQ(m_grab.LastSaveFailure().code, 0);
    Fetch("/short");
    EXPECT_EQ(m_grab.Bytes().size(), 0U);
    EXPECT_FALSE(m_grab.SaveAs(m_path));
    EXPECT_EQ(m_desktop.Read("setup.exe"), binary);
    EXPECT_THAT(m_ends, ElementsAre("complete 6", "failed 12030"));
}

TEST_F(NetGrabTest, OneDestroyedIsHeardOfNoMoreWhereverItIs)
{
    m_server.Serve("/whole", "content");
    m_server.Play("/held", {FaultServer::Hold()});
    for (const char* path : {"/whole", "/held"})
    {
        SCOPED_TRACE(path);
        {
            NetGrab other(m_loop, *this);
            other.DownloadStart(m_server.Url(path), kFresh);
            m_server.AwaitRequest(path);
        } // Its notices may be on their way through the loop by now.
        m_loop.Yield();
        EXPECT_TRUE(m_ends.empty());
    }
}

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
    m_server.Play("/larger", {FaultServer::Head(kMostBytesOfAList + 1)});
    EXPECT_EQ(Download("/missing"), error_code::kNotOnServer);
    EXPECT_EQ(Download("/larger"), error_code::kTooLarge);
    m_server.Serve("/empty", "");
    EXPECT_EQ(Download("/empty"), error_code::kInvalidData);
    EXPECT_EQ(Download("/list", "none\\x.ini"), error_code::kFolderMissing);
    EXPECT_EQ(m_desktop.Read("version.ini"), "an older and longer content than the new");
    EXPECT_EQ(Download("/list"), 0);
    EXPECT_EQ(m_desktop.Read("version.ini"), "[Loadcalc 8]\r\nMajor=8\r\n");
    EXPECT_EQ(MFile::FileNames(m_desktop.Folder()).Value().size(), 1U);
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
    // Never silent for long, so that only the whole time can be over.
    const std::string slow(1U << 16, 'x');
    m_server.Play("/slow", {FaultServer::Head(slow.size()), FaultServer::Drip(slow)});
    m_server.Serve("/list", "new");
    m_download.EndBy(m_now + std::chrono::milliseconds(1));
    EXPECT_EQ(Download("/slow"), error_code::kTimedOut);
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
