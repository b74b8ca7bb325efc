#include "download/UrlToFile.h"

#include "platform/AsyncRead.h"
#include "platform/MFile.h"

#include <optional>
#include <string_view>

namespace velmo
{
namespace
{

Result<Done> TooLate()
{
    constexpr std::int32_t kTimedOut = 12002;
    return Error{kTimedOut, "The time for downloads was over."};
}

/// Keeps the outcome until the loop comes back to whoever waits for it.
class Waiter final : public platform::AsyncRead::Listener
{
  public:
    void ReadProgress(std::size_t) override {}

    void ReadComplete(std::size_t count, const Result<Done>& outcome) override
    {
        m_count = count;
        m_outcome = outcome;
    }

    [[nodiscard]] bool IsDone() const { return m_outcome.has_value(); }
    [[nodiscard]] std::size_t Count() const { return m_count; }
    [[nodiscard]] const Result<Done>& Outcome() const { return *m_outcome; }

  private:
    std::size_t m_count = 0;
    std::optional<Result<Done>> m_outcome;
};

platform::HttpLimits LimitsFor(std::uint64_t mostBytes)
{
    platform::HttpLimits limits;
    limits.mostBytes = mostBytes;
    return limits;
}

} // namespace

UrlToFile::UrlToFile(platform::MessageLoop& loop, std::uint64_t mostBytes)
    : UrlToFile(loop, LimitsFor(mostBytes))
{}

UrlToFile::UrlToFile(platform::MessageLoop& loop, const platform::HttpLimits& limits)
    : m_loop(loop), m_limits(limits)
{}

bool UrlToFile::Download(const std::string& url, const std::string& path)
{
    const Result<Done> outcome = TimeIsOver() ? TooLate() : DownloadInTime(url, path);
    m_lastError = outcome ? Error{} : outcome.Failure();
    return outcome.Ok();
}

Result<Done> UrlToFile::DownloadInTime(const std::string& url, const std::string& path)
{
    Waiter waiter;
    platform::AsyncRead read(m_loop, url, m_limits, waiter);
    m_loop.RunUntil([&] { return waiter.IsDone() || TimeIsOver(); });
    if (!waiter.IsDone())
    {
        return TooLate();
    }
    if (!waiter.Outcome())
    {
        return waiter.Outcome();
    }
    const auto bytes = read.Bytes()->First(waiter.Count());
    // Lists are fetched anew in each program run.
    return platform::MFile::WriteAll(path,
                                     {reinterpret_cast<const char*>(bytes.data()), bytes.size()},
                                     platform::MFile::Keeping::Passing);
}

bool UrlToFile::TimeIsOver() const
{
    return m_end && std::chrono::steady_clock::now() >= *m_end;
}

} // namespace velmo
