#include "platform/HttpHop.h"

#include "platform/ErrorCode.h"
#include "platform/windows/InternetCode.h"

#include <windows.h>

#include <wininet.h>

#include <algorithm>
#include <atomic>
#include <charconv>
#include <condition_variable>
#include <deque>
#include <memory>
#include <mutex>
#include <thread>
#include <utility>
#include <vector>

namespace velmo::platform
{
namespace
{

using Clock = std::chrono::steady_clock;
using Bytes = std::vector<std::byte>;

/// Small enough for the slowest line to fill it within the usual stall time-out.
constexpr std::size_t kReadSize = 64 * 1024;
constexpr std::size_t kMostWaiting = 32; ///< Buffers read ahead of the sink.

struct HandleCloser
{
    void operator()(void* handle) const { InternetCloseHandle(handle); }
};

using Handle = std::unique_ptr<void, HandleCloser>;

/// A text that the response has, such as a header; empty when it has none.
std::string QueryText(HINTERNET request, DWORD what)
{
    std::string text(512, '\0');
    auto size = static_cast<DWORD>(text.size());
    while (!HttpQueryInfoA(request, what, text.data(), &size, nullptr))
    {
        if (GetLastError() != ERROR_INSUFFICIENT_BUFFER)
        {
            return {};
        }
        text.resize(size);
    }
    text.resize(size);
    return text;
}

/// @a reference as an absolute address, seen from @a base; empty when it cannot be read.
std::string Absolute(const std::string& base, const std::string& reference)
{
    std::string text(base.size() + 3 * reference.size() + 16, '\0');
    auto size = static_cast<DWORD>(text.size());
    if (!InternetCombineUrlA(base.c_str(), reference.c_str(), text.data(), &size, 0))
    {
        return {};
    }
    text.resize(size);
    return text;
}

/**
    One exchange, shared by two threads. A blocked WinINet call cannot be interrupted (closing its
    handle from elsewhere is neither safe nor, on every system, of effect), so a worker makes the
    calls and the caller waits for what it brings, watching the clock and the stop request. When the
    caller gives up it leaves the worker behind; the worker ends with its blocked call, at the latest
    when the request's own time-out, a little longer than the caller's, is over.
 */
class Exchange
{
  public:
    Exchange(std::string url, const HttpLimits& limits, HopEnd end)
        : m_url(std::move(url)), m_limits(limits), m_end(end)
    {}

    /// The worker's part.
    void Run()
    {
        const std::int32_t code = Request();
        const std::lock_guard lock(m_mutex);
        m_code = code;
        m_ended = true;
        m_changed.notify_all();
    }

    /// The caller's part.
    std::int32_t Follow(HopSink& sink, const std::stop_token& stop)
    {
        std::unique_lock lock(m_mutex);
        for (;;)
        {
            const bool news = m_changed.wait_until(lock, stop, Deadline(), [this] {
                return m_ended || m_newHead || !m_waiting.empty();
            });
            std::optional<std::int32_t> code;
            if (stop.stop_requested())
            {
                code = error_code::kCancelled;
            }
            else if (news)
            {
                code = Deliver(lock, sink);
            }
            else if (Clock::now() >= Deadline()) // A sign of life may have moved it on meanwhile.
            {
                code = error_code::kTimedOut;
            }
            if (code)
            {
                m_abandoned = true;
                m_changed.notify_all();
                return *code;
            }
        }
    }

  private:
    [[nodiscard]] Clock::time_point Deadline() const
    {
        const auto longest = m_connected ? m_limits.stallTimeout : m_limits.connectTimeout;
        return std::min(m_end, m_lastSign.load() + longest);
    }

    /// Hands the next thing to the sink. The exchange's code when that was all.
    std::optional<std::int32_t> Deliver(std::unique_lock<std::mutex>& lock, HopSink& sink)
    {
        if (!m_newHead && m_waiting.empty())
        {
            return m_code;
        }
        bool wanted = false;
        if (m_newHead)
        {
            m_newHead = false;
            const HttpHead head = m_head;
            lock.unlock();
            wanted = sink.Head(head);
            lock.lock();
        }
        else
        {
            Bytes bytes = std::move(m_waiting.front());
            m_waiting.pop_front();
            lock.unlock();
            wanted = sink.Add(bytes);
            lock.lock();
            m_spare.push_back(std::move(bytes));
            m_changed.notify_all();
        }
        return wanted ? std::nullopt : std::optional(0);
    }

    void SignOfLife() { m_lastSign = Clock::now(); }

    static void CALLBACK OnStatus(HINTERNET, DWORD_PTR context, DWORD status, void*, DWORD)
    {
        auto& exchange = *reinterpret_cast<Exchange*>(context);
        // A connection that is used again is never told of as made.
        if (status == INTERNET_STATUS_CONNECTED_TO_SERVER ||
            status == INTERNET_STATUS_SENDING_REQUEST)
        {
            exchange.SignOfLife();
            exchange.m_connected = true;
        }
    }

    /// Where a request goes, as the calls want it.
    struct Target
    {
        std::string host;
        std::string path; ///< With the query.
        INTERNET_PORT port = 0;
        DWORD flags = 0;
    };

    [[nodiscard]] std::optional<Target> Crack() const
    {
        // Lengths without buffers ask for places within the address.
        URL_COMPONENTSA parts{};
        parts.dwStructSize = sizeof parts;
        parts.dwHostNameLength = 1;
        parts.dwUrlPathLength = 1;
        parts.dwExtraInfoLength = 1;
        if (!InternetCrackUrlA(m_url.c_str(), 0, 0, &parts))
        {
            return std::nullopt;
        }
        return Target{{parts.lpszHostName, parts.dwHostNameLength},
                      std::string(parts.lpszUrlPath, parts.dwUrlPathLength)
                          .append(parts.lpszExtraInfo, parts.dwExtraInfoLength),
                      parts.nPort,
                      parts.nScheme == INTERNET_SCHEME_HTTPS ? INTERNET_FLAG_SECURE : 0UL};
    }

    /// Sends the request and reads the response. Returns 0 at the response's end.
    std::int32_t Request()
    {
        const std::optional<Target> target = Crack();
        if (!target)
        {
            return error_code::kInvalidAddress;
        }
        const Handle session(InternetOpenA("Velmo Software Update Manager",
                                           INTERNET_OPEN_TYPE_PRECONFIG, nullptr, nullptr, 0));
        const Handle connection(InternetConnectA(session.get(), target->host.c_str(), target->port,
                                                 nullptr, nullptr, INTERNET_SERVICE_HTTP, 0, 0));
        constexpr DWORD kFlags = INTERNET_FLAG_RELOAD | INTERNET_FLAG_PRAGMA_NOCACHE |
                                 INTERNET_FLAG_NO_CACHE_WRITE | INTERNET_FLAG_NO_UI |
                                 INTERNET_FLAG_NO_AUTO_REDIRECT | INTERNET_FLAG_NO_COOKIES;
        InternetSetStatusCallbackA(connection.get(), &OnStatus);
        const Handle request(HttpOpenRequestA(connection.get(), "GET", target->path.c_str(),
                                              nullptr, nullptr, nullptr, kFlags | target->flags,
                                              reinterpret_cast<DWORD_PTR>(this)));
        if (!request)
        {
            return InternetCode(GetLastError());
        }
        InternetSetStatusCallbackA(request.get(), &OnStatus);
        SetTimeouts(request.get());
        const std::int32_t code = Answer(request.get());
        InternetSetStatusCallbackA(request.get(), nullptr);
        InternetSetStatusCallbackA(connection.get(), nullptr);
        return code;
    }

    /// On the request: set on the session they do not count everywhere.
    void SetTimeouts(HINTERNET request) const
    {
        constexpr std::chrono::milliseconds kLater{2000};
        auto connect = static_cast<DWORD>((m_limits.connectTimeout + kLater).count());
        auto stall = static_cast<DWORD>((m_limits.stallTimeout + kLater).count());
        InternetSetOptionA(request, INTERNET_OPTION_CONNECT_TIMEOUT, &connect, sizeof connect);
        InternetSetOptionA(request, INTERNET_OPTION_SEND_TIMEOUT, &stall, sizeof stall);
        InternetSetOptionA(request, INTERNET_OPTION_RECEIVE_TIMEOUT, &stall, sizeof stall);
    }

    std::int32_t Answer(HINTERNET request)
    {
        if (!HttpSendRequestA(request, nullptr, 0, nullptr, 0))
        {
            const std::int32_t code = InternetCode(GetLastError());
            const bool ended = code == error_code::kEndedTooEarly || code == error_code::kReset;
            return !ended ? code : m_connected ? error_code::kNoHttp : error_code::kCannotConnect;
        }
        HttpHead head;
        DWORD status = 0;
        DWORD size = sizeof status;
        HttpQueryInfoA(request, HTTP_QUERY_STATUS_CODE | HTTP_QUERY_FLAG_NUMBER, &status, &size,
                       nullptr);
        if (status == 0 || !HasHeaders(request))
        {
            return error_code::kNoHttp;
        }
        head.status = static_cast<int>(status);
        head.reason = QueryText(request, HTTP_QUERY_STATUS_TEXT);
        head.encoding = QueryText(request, HTTP_QUERY_CONTENT_ENCODING);
        const std::string location = QueryText(request, HTTP_QUERY_LOCATION);
        head.location = location.empty() ? location : Absolute(m_url, location);
        const std::string length = QueryText(request, HTTP_QUERY_CONTENT_LENGTH);
        std::uint64_t bytes = 0;
        if (std::from_chars(length.data(), length.data() + length.size(), bytes).ec == std::errc())
        {
            head.length = bytes;
        }
        return HandOver(std::move(head)) ? ReadBody(request) : 0;
    }

    /// A reply that is no HTTP at all passes for "200 OK" without a single header.
    static bool HasHeaders(HINTERNET request)
    {
        const std::string raw = QueryText(request, HTTP_QUERY_RAW_HEADERS_CRLF);
        return raw.find(':') != std::string::npos;
    }

    /// A read waits until its buffer is full. So at first, and after a slow read, only what is there
    /// is asked for; as long as that comes at once, each read asks for twice as much as the last.
    std::int32_t ReadBody(HINTERNET request)
    {
        constexpr std::chrono::milliseconds kAtOnce{10};
        std::size_t size = 0;
        for (;;)
        {
            if (size == 0)
            {
                DWORD available = 0;
                if (!InternetQueryDataAvailable(request, &available, 0, 0))
                {
                    return InternetCode(GetLastError());
                }
                size = std::clamp<std::size_t>(available, 1, kReadSize);
            }
            Bytes bytes = Spare();
            bytes.resize(size);
            DWORD count = 0;
            const Clock::time_point start = Clock::now();
            if (!InternetReadFile(request, bytes.data(), static_cast<DWORD>(size), &count))
            {
                return InternetCode(GetLastError());
            }
            const bool atOnce = count == size && Clock::now() - start < kAtOnce;
            size = atOnce ? std::min(2 * size, kReadSize) : 0;
            bytes.resize(count);
            if (count == 0 || !HandOver(std::move(bytes)))
            {
                return 0;
            }
        }
    }

    Bytes Spare()
    {
        const std::lock_guard lock(m_mutex);
        if (m_spare.empty())
        {
            return {};
        }
        Bytes bytes = std::move(m_spare.back());
        m_spare.pop_back();
        return bytes;
    }

    /// False when the caller has gone.
    bool HandOver(HttpHead head)
    {
        const std::lock_guard lock(m_mutex);
        SignOfLife();
        m_head = std::move(head);
        m_newHead = true;
        m_changed.notify_all();
        return !m_abandoned;
    }

    bool HandOver(Bytes bytes)
    {
        std::unique_lock lock(m_mutex);
        SignOfLife();
        m_changed.wait(lock, [this] { return m_abandoned || m_waiting.size() < kMostWaiting; });
        m_waiting.push_back(std::move(bytes));
        m_changed.notify_all();
        return !m_abandoned;
    }

    const std::string m_url;
    const HttpLimits m_limits;
    const HopEnd m_end;
    std::atomic<Clock::time_point> m_lastSign{Clock::now()};
    std::atomic<bool> m_connected{false};

    std::mutex m_mutex; ///< Guards what follows.
    std::condition_variable_any m_changed;
    HttpHead m_head;
    bool m_newHead = false;
    std::deque<Bytes> m_waiting;
    std::vector<Bytes> m_spare;
    bool m_ended = false;     ///< The worker is through; m_code tells how.
    bool m_abandoned = false; ///< The caller has gone.
    std::int32_t m_code = 0;
};

} // namespace

std::int32_t HttpHop(const std::string& url, const HttpLimits& limits, HopEnd end, HopSink& sink,
                     const std::stop_token& stop)
{
    const auto exchange = std::make_shared<Exchange>(url, limits, end);
    std::thread([exchange] { exchange->Run(); }).detach();
    return exchange->Follow(sink, stop);
}

} // namespace velmo::platform
