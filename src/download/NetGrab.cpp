#include "download/NetGrab.h"

#include "platform/MFile.h"

#include <algorithm>
#include <cstdlib>
#include <limits>
#include <utility>

namespace velmo
{

NetGrab::NetGrab(platform::MessageLoop& loop, Listener& listener, platform::TickSource ticks,
                 const platform::HttpLimits& limits)
    : m_loop(loop), m_listener(listener), m_ticks(std::move(ticks)), m_limits(limits)
{}

NetGrab::~NetGrab() = default;

std::span<const std::byte> NetGrab::Bytes() const
{
    if (m_byteCount == 0)
    {
        return {};
    }
    return m_received->First(static_cast<std::size_t>(m_byteCount));
}

void NetGrab::DownloadCancel()
{
    if (m_read)
    {
        m_read->Cancel();
    }
}

void NetGrab::DownloadStart(const std::string& url, std::int32_t /*mode*/)
{
    if (url.empty())
    {
        return;
    }
    m_read.reset();
    m_duration = 0;
    m_startTick = std::max(m_ticks(), 1U);       // 0 would read as idle.
    platform::AsyncRead::Listener& self = *this; // Only members may take the control for one.
    m_read = std::make_unique<platform::AsyncRead>(m_loop, url, m_limits, self, m_ticks);
}

bool NetGrab::SaveAs(const std::string& fileName)
{
    if (m_byteCount == 0)
    {
        return false;
    }
    // A file that stays behind after a failure would pass for the one that was wanted.
    (void)platform::MFile::DeleteIfExists(fileName);
    const auto bytes = Bytes();
    const Result<Done> written = platform::MFile::WriteAll(
        fileName, {reinterpret_cast<const char*>(bytes.data()), bytes.size()});
    m_lastSaveFailure = written ? Error{} : written.Failure();
    return written.Ok();
}

void NetGrab::ReadProgress(std::size_t count)
{
    m_received = m_read->Bytes();
    m_byteCount = static_cast<std::int32_t>(count);
    m_listener.DownloadProgress(m_byteCount);
}

void NetGrab::ReadComplete(std::size_t count, const Result<Done>& outcome)
{
    // Taken round the counter's wrap; a counter that was set back gives the way back.
    const auto difference = static_cast<std::int32_t>(m_ticks() - m_startTick);
    m_duration = std::abs(std::max(difference, -std::numeric_limits<std::int32_t>::max()));
    m_startTick = 0;
    if (outcome)
    {
        m_received = m_read->Bytes();
        m_byteCount = static_cast<std::int32_t>(count);
        m_read.reset();
        m_listener.DownloadComplete(m_byteCount);
        return;
    }
    m_received.reset();
    m_byteCount = 0;
    m_read.reset();
    m_listener.DownloadFailed(outcome.Failure().code, outcome.Failure().description);
}

} // namespace velmo
