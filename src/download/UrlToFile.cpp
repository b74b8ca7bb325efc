#include "download/UrlToFile.h"

#include "platform/AsyncRead.h"
#include "platform/ErrorCode.h"
#include "platform/MFile.h"

#include <algorithm>
#include <utility>

namespace velmo
{
namespace
{

/// Keeps the outcome until the loop comes back to whoever waits for it.
struct Waiter final : platform::AsyncRead::Listener
{
    void ReadProgress(std::size_t) override {}

    void ReadComplete(std::size_t bytes, const Result<Done>& how) override
    {
        count = bytes;
        outcome = how;
    }

    std::size_t count = 0;
    std::optional<Result<Done>> outcome;
};

} // namespace

UrlToFile::UrlToFile(platform::MessageLoop& loop, const platform::HttpLimits& limits, Clock now)
    : m_loop(loop), m_limits(limits), m_now(std::move(now))
{}

Result<std::string> UrlToFile::Read(const std::string& url)
{
    platform::HttpLimits limits = m_limits;
    if (m_end)
    {
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(*m_end - m_now());
        limits.wholeTimeout = std::min(limits.wholeTimeout, left);
        if (left.count() <= 0)
        {
            return Error{error_code::kTimedOut, "The time for downloads was over."};
        }
    }
    Waiter waiter;
    platform::AsyncRead read(m_loop, url, limits, waiter);
    m_running = &read;
    m_loop.RunUntil([&] { return waiter.outcome.has_value(); });
    m_running = nullptr;
    if (waiter.outcome->Ok() && waiter.count == 0)
    {
        return Error{error_code::kInvalidData, "The server sent an empty file."};
    }
    return waiter.outcome->Then([&](Done) {
        const auto bytes = read.Bytes()->First(waiter.count);
        return std::string(reinterpret_cast<const char*>(bytes.data()), bytes.size());
    });
}

Result<std::string> UrlToFile::Download(const std::string& url, const std::string& path)
{
    auto bytes = Read(url);
    if (!bytes)
    {
        return bytes;
    }
    // Lists are fetched anew in each program run.
    const auto written =
        platform::MFile::WriteAll(path, bytes.Value(), platform::MFile::Keeping::Passing);
    return written ? std::move(bytes)
                   : Error{written.Failure().code,
                           "Writing " + path + ": " + written.Failure().description};
}

void UrlToFile::Cancel()
{
    if (m_running != nullptr)
    {
        m_running->Cancel();
    }
}

} // namespace velmo
