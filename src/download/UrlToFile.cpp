#include "download/UrlToFile.h"

#include "platform/AsyncRead.h"
#include "platform/MFile.h"

#include <optional>
#include <string_view>

namespace velmo
{
namespace
{

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
    Waiter waiter;
    const platform::AsyncRead read(m_loop, url, m_limits, waiter);
    m_loop.RunUntil([&waiter] { return waiter.IsDone(); });

    Result<Done> outcome = waiter.Outcome();
    if (outcome)
    {
        const auto bytes = read.Bytes()->First(waiter.Count());
        outcome = platform::MFile::WriteAll(
            path, {reinterpret_cast<const char*>(bytes.data()), bytes.size()});
    }
    m_lastError = outcome ? Error{} : outcome.Failure();
    return outcome.Ok();
}

} // namespace velmo
