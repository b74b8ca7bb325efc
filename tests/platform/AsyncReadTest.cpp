#include "platform/AsyncRead.h"

#include "platform/HeadlessLoop.h"
#include "tests/support/FaultServer.h"

#include <gtest/gtest.h>

#include <chrono>
#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace velmo::platform
{
namespace
{

using test::FaultServer;
using namespace std::chrono_literals;

const HttpLimits kPatient{10min, 10min};

class AsyncReadTest : public testing::Test, public AsyncRead::Listener
{
  protected:
    void Start(const std::string& path, const HttpLimits& limits = kPatient)
    {
        m_outcome.reset();
        m_read = std::make_unique<AsyncRead>(m_loop, m_server.Url(path), limits, *this);
    }

    void AwaitCompletion()
    {
        m_loop.RunUntil([this] { return m_outcome.has_value(); });
    }

    /// The code that the read ended with, 0 when it went well.
    [[nodiscard]] std::int32_t Code() const { return *m_outcome ? 0 : m_outcome->Failure().code; }

    [[nodiscard]] std::string Text(std::size_t count) const
    {
        const auto bytes = m_read->Bytes()->First(count);
        return {reinterpret_cast<const char*>(bytes.data()), bytes.size()};
    }

    void ReadProgress(std::size_t count) override
    {
        EXPECT_FALSE(m_outcome.has_value());
        EXPECT_GE(count, m_count);
        m_count = count;
        ++m_notices;
        if (m_onProgress)
        {
            m_onProgress();
        }
    }

    void ReadComplete(std::size_t count, const Result<Done>& outcome) override
    {
        EXPECT_FALSE(m_outcome.has_value());
        m_count = count;
        m_outcome = outcome;
        if (m_onComplete)
        {
            m_onComplete();
        }
    }

    FaultServer m_server;
    HeadlessLoop m_loop;
    std::unique_ptr<AsyncRead> m_read;
    std::size_t m_count = 0;
    int m_notices = 0;
    std::optional<Result<Done>> m_outcome;
    std::function<void()> m_onProgress;
    std::function<void()> m_onComplete;
};

TEST_F(AsyncReadTest, WhatHasArrivedCanBeSeenBeforeTheRestComes)
{
    m_server.Play("/x", {FaultServer::Head(10), FaultServer::Send("first"), FaultServer::Hold(),
                         FaultServer::Send("later")});
    std::string seen;
    m_onProgress = [&] {
        seen = Text(m_count);
        m_server.Release("/x");
    };
    Start("/x");
    const std::byte* place = m_read->Bytes()->First(0).data();
    AwaitCompletion();
    EXPECT_EQ(seen, "first");
    EXPECT_EQ(Code(), 0);
    EXPECT_EQ(Text(m_count), "firstlater");
    EXPECT_EQ(m_read->Bytes()->First(0).data(), place);
}

TEST_F(AsyncReadTest, ProgressIsToldAtMostTwentyTimesASecond)
{
    const std::string content(100, 'x');
    m_server.Play("/x", {FaultServer::Head(content.size()), FaultServer::Drip(content)});
    const auto start = std::chrono::steady_clock::now();
    Start("/x");
    AwaitCompletion();
    const auto took = std::chrono::steady_clock::now() - start;
    EXPECT_GE(m_notices, 1);
    EXPECT_LE(m_notices, 1 + took / 50ms); // However slow the machine is.
    EXPECT_EQ(m_count, content.size());
}

TEST_F(AsyncReadTest, CancellingCompletesItAsCancelled)
{
    m_server.Play("/x", {FaultServer::Head(10), FaultServer::Send("first"), FaultServer::Hold()});
    m_onProgress = [this] { m_read->Cancel(); };
    Start("/x");
    AwaitCompletion();
    EXPECT_EQ(Code(), 12017);

    Start("/x");
    m_read->Cancel();
    m_read->Cancel();
    AwaitCompletion();
    EXPECT_EQ(Code(), 12017);
}

TEST_F(AsyncReadTest, ADestroyedReadIsHeardOfNoMore)
{
    m_server.Serve("/whole", "content");
    m_server.Play("/held", {FaultServer::Hold()});
    for (const char* path : {"/whole", "/held"})
    {
        SCOPED_TRACE(path);
        Start(path);
        m_server.AwaitRequest(path);
        m_read.reset(); // Its notices may be on their way through the loop by now.
        m_loop.Yield();
        EXPECT_FALSE(m_outcome.has_value());
        EXPECT_EQ(m_notices, 0);
    }
}

TEST_F(AsyncReadTest, TheListenerMayStartTheNextReadWhenOneCompletes)
{
    m_server.Serve("/1", "one");
    m_server.Serve("/2", "two");
    bool second = false;
    m_onComplete = [&] {
        if (!second)
        {
            second = true;
            Start("/2");
        }
    };
    Start("/1");
    AwaitCompletion();
    EXPECT_TRUE(second);
    EXPECT_EQ(Text(m_count), "two");
}

TEST_F(AsyncReadTest, BytesOutliveTheReadForWhoeverHoldsThem)
{
    m_server.Serve("/x", "content");
    Start("/x");
    AwaitCompletion();
    const std::shared_ptr<const ByteStore> bytes = m_read->Bytes();
    m_read.reset();
    EXPECT_EQ(static_cast<char>(bytes->First(7)[6]), 't');
}

TEST_F(AsyncReadTest, AFileLargerThanAllowedIsRefused)
{
    m_server.Serve("/x", "12345678");
    HttpLimits limits = kPatient;
    limits.mostBytes = 7;
    Start("/x", limits);
    AwaitCompletion();
    EXPECT_EQ(Code(), 223);
    limits.mostBytes = 8;
    Start("/x", limits);
    AwaitCompletion();
    EXPECT_EQ(Code(), 0);
}

} // namespace
} // namespace velmo::platform
