#include "platform/HttpHop.h"

#include "platform/ErrorCode.h"

#include <curl/curl.h>

#include <algorithm>
#include <array>
#include <memory>
#include <string_view>

namespace velmo::platform
{
namespace
{

using Clock = std::chrono::steady_clock;

constexpr long kReadSize = 256L * 1024;

struct Pair
{
    CURLcode curl;
    std::int32_t internet;
};

constexpr std::array kPairs{
    Pair{CURLE_OK, 0},
    Pair{CURLE_UNSUPPORTED_PROTOCOL, error_code::kNoHttp}, // An answer without a status line.
    Pair{CURLE_URL_MALFORMAT, error_code::kInvalidAddress},
    Pair{CURLE_COULDNT_RESOLVE_PROXY, error_code::kUnknownHost},
    Pair{CURLE_COULDNT_RESOLVE_HOST, error_code::kUnknownHost},
    Pair{CURLE_COULDNT_CONNECT, error_code::kCannotConnect},
    Pair{CURLE_WEIRD_SERVER_REPLY, error_code::kNoHttp},
    Pair{CURLE_PARTIAL_FILE, error_code::kEndedTooEarly},
    Pair{CURLE_OUT_OF_MEMORY, error_code::kOutOfMemory},
    Pair{CURLE_OPERATION_TIMEDOUT, error_code::kTimedOut},
    Pair{CURLE_SSL_CONNECT_ERROR, error_code::kNoSecureChannel},
    Pair{CURLE_GOT_NOTHING, error_code::kNoHttp},
    Pair{CURLE_SEND_ERROR, error_code::kReset},
    Pair{CURLE_RECV_ERROR, error_code::kReset},
    Pair{CURLE_SSL_CERTPROBLEM, error_code::kNoSecureChannel},
    Pair{CURLE_SSL_CIPHER, error_code::kNoSecureChannel},
    Pair{CURLE_PEER_FAILED_VERIFICATION, error_code::kUntrustedCertificate},
    Pair{CURLE_SSL_CACERT_BADFILE, error_code::kUntrustedCertificate},
    Pair{CURLE_SSL_ISSUER_ERROR, error_code::kUntrustedCertificate},
    Pair{CURLE_SSL_INVALIDCERTSTATUS, error_code::kUntrustedCertificate},
};

std::int32_t InternetCode(CURLcode result)
{
    const auto pair = std::find_if(kPairs.begin(), kPairs.end(),
                                   [result](const Pair& p) { return p.curl == result; });
    return pair == kPairs.end() ? error_code::kInternetBroken : pair->internet;
}

template <auto Free>
struct Freer
{
    template <typename T>
    void operator()(T* object) const
    {
        Free(object);
    }
};

using Easy = std::unique_ptr<CURL, Freer<curl_easy_cleanup>>;
using Multi = std::unique_ptr<CURLM, Freer<curl_multi_cleanup>>;
using Url = std::unique_ptr<CURLU, Freer<curl_url_cleanup>>;
using HeaderList = std::unique_ptr<curl_slist, Freer<curl_slist_free_all>>;
using Text = std::unique_ptr<char, Freer<curl_free>>;

/// @a reference as an absolute address, seen from @a base; empty when it cannot be read.
std::string Absolute(const std::string& base, const char* reference)
{
    const Url url(curl_url());
    char* text = nullptr;
    // Schemes that are not ours are read too, so that the caller can say what is wrong with them.
    constexpr unsigned int kAnyScheme = CURLU_NON_SUPPORT_SCHEME;
    if (curl_url_set(url.get(), CURLUPART_URL, base.c_str(), 0) != CURLUE_OK ||
        curl_url_set(url.get(), CURLUPART_URL, reference, kAnyScheme | CURLU_URLENCODE) !=
            CURLUE_OK ||
        curl_url_get(url.get(), CURLUPART_URL, &text, 0) != CURLUE_OK)
    {
        return {};
    }
    return Text(text).get();
}

class Exchange
{
  public:
    Exchange(const std::string& url, const HttpLimits& limits, HopEnd end, HopSink& sink)
        : m_url(url), m_limits(limits), m_end(end), m_sink(sink)
    {}

    std::int32_t Run(const std::stop_token& stop)
    {
        if (!m_easy || !m_multi)
        {
            return error_code::kInternetBroken;
        }
        SetOptions();
        curl_multi_add_handle(m_multi.get(), m_easy.get());
        const std::int32_t code = Transfer(stop);
        curl_multi_remove_handle(m_multi.get(), m_easy.get());
        return code;
    }

  private:
    template <typename Value>
    void Set(CURLoption option, Value value)
    {
        curl_easy_setopt(m_easy.get(), option, value);
    }

    void SetOptions()
    {
        m_headers.reset(curl_slist_append(nullptr, "Cache-Control: no-cache"));
        m_headers.reset(curl_slist_append(m_headers.release(), "Pragma: no-cache"));
        Set(CURLOPT_URL, m_url.c_str());
        Set(CURLOPT_PROTOCOLS_STR, "http,https");
        Set(CURLOPT_HTTP_VERSION, static_cast<long>(CURL_HTTP_VERSION_1_1));
        Set(CURLOPT_HTTPHEADER, m_headers.get());
        Set(CURLOPT_USERAGENT, "Velmo Software Update Manager");
        Set(CURLOPT_CONNECTTIMEOUT_MS, static_cast<long>(m_limits.connectTimeout.count()));
        Set(CURLOPT_NOSIGNAL, 1L);
        // Without it, giving up would wait for a name server that does not answer.
        Set(CURLOPT_QUICK_EXIT, 1L);
        Set(CURLOPT_SUPPRESS_CONNECT_HEADERS, 1L);
        Set(CURLOPT_BUFFERSIZE, kReadSize);
        Set(CURLOPT_PREREQFUNCTION, &OnConnected);
        Set(CURLOPT_PREREQDATA, this);
        Set(CURLOPT_HEADERFUNCTION, &OnHeader);
        Set(CURLOPT_HEADERDATA, this);
        Set(CURLOPT_WRITEFUNCTION, &OnBody);
        Set(CURLOPT_WRITEDATA, this);
    }

    std::int32_t Transfer(const std::stop_token& stop)
    {
        const std::stop_callback wake(stop, [this] { curl_multi_wakeup(m_multi.get()); });
        constexpr std::chrono::milliseconds kLongestPoll{1000};
        for (;;)
        {
            int running = 0;
            if (curl_multi_perform(m_multi.get(), &running) != CURLM_OK)
            {
                return error_code::kInternetBroken;
            }
            if (stop.stop_requested())
            {
                return error_code::kCancelled;
            }
            if (m_answered && !GiveHead())
            {
                return 0;
            }
            if (running == 0)
            {
                return Outcome();
            }
            // Until it is connected the library's own connect timeout counts.
            const auto end =
                m_connected ? std::min(m_end, m_lastSign + m_limits.stallTimeout) : m_end;
            const auto left = std::chrono::ceil<std::chrono::milliseconds>(end - Clock::now());
            if (left.count() <= 0)
            {
                return error_code::kTimedOut;
            }
            curl_multi_poll(m_multi.get(), nullptr, 0,
                            static_cast<int>(std::min(left, kLongestPoll).count()), nullptr);
        }
    }

    std::int32_t Outcome()
    {
        int left = 0;
        const CURLMsg* message = curl_multi_info_read(m_multi.get(), &left);
        const CURLcode result = message == nullptr ? CURLE_FAILED_INIT : message->data.result;
        // Cut short within its head, an answer is none, though the library may let it pass.
        const std::int32_t code = InternetCode(result);
        const bool ended =
            code == 0 || code == error_code::kEndedTooEarly || code == error_code::kReset;
        return ended && !m_answered ? error_code::kNoHttp : code;
    }

    /// Hands over the head unless that has been done. False when the sink wants no more.
    bool GiveHead()
    {
        if (!m_headGiven)
        {
            m_headGiven = true;
            m_refused = !m_sink.Head(Head());
        }
        return !m_refused;
    }

    HttpHead Head()
    {
        HttpHead head;
        long status = 0;
        curl_off_t length = -1;
        curl_easy_getinfo(m_easy.get(), CURLINFO_RESPONSE_CODE, &status);
        curl_easy_getinfo(m_easy.get(), CURLINFO_CONTENT_LENGTH_DOWNLOAD_T, &length);
        head.status = static_cast<int>(status);
        head.reason = m_reason;
        if (length >= 0)
        {
            head.length = static_cast<std::uint64_t>(length);
        }
        head.encoding = HeaderText("Content-Encoding");
        const std::string location = HeaderText("Location");
        head.location = location.empty() ? location : Absolute(m_url, location.c_str());
        return head;
    }

    std::string HeaderText(const char* name)
    {
        curl_header* header = nullptr;
        const auto found = curl_easy_header(m_easy.get(), name, 0, CURLH_HEADER, -1, &header);
        return found == CURLHE_OK ? header->value : "";
    }

    static int OnConnected(void* self, char*, char*, int, int)
    {
        auto& exchange = *static_cast<Exchange*>(self);
        exchange.m_connected = true;
        exchange.m_lastSign = Clock::now();
        return CURL_PREREQFUNC_OK;
    }

    static std::size_t OnHeader(char* data, std::size_t size, std::size_t count, void* self)
    {
        auto& exchange = *static_cast<Exchange*>(self);
        exchange.m_lastSign = Clock::now();
        const std::string_view line(data, size * count);
        if (line == "\r\n" || line == "\n")
        {
            exchange.m_answered = exchange.m_answered || !exchange.m_interim;
        }
        else if (line.starts_with("HTTP/"))
        {
            // "HTTP/1.1 404 Not Found\r\n": what follows the number.
            const std::size_t number = line.find(' ');
            const std::size_t text = line.find(' ', number + 1);
            exchange.m_interim = line.substr(number + 1).starts_with('1');
            const std::size_t end = line.find_last_not_of("\r\n ") + 1;
            exchange.m_reason =
                text < end ? line.substr(text + 1, end - text - 1) : std::string_view();
        }
        return size * count;
    }

    static std::size_t OnBody(char* data, std::size_t size, std::size_t count, void* self)
    {
        auto& exchange = *static_cast<Exchange*>(self);
        exchange.m_lastSign = Clock::now();
        const std::span bytes(data, size * count);
        if (exchange.GiveHead() && !exchange.m_sink.Add(std::as_bytes(bytes)))
        {
            exchange.m_refused = true;
        }
        return exchange.m_refused ? CURL_WRITEFUNC_ERROR : bytes.size();
    }

    const std::string& m_url;
    const HttpLimits& m_limits;
    const HopEnd m_end;
    HopSink& m_sink;
    HeaderList m_headers;
    Easy m_easy{curl_easy_init()};
    Multi m_multi{curl_multi_init()};
    bool m_connected = false;
    bool m_interim = false;  ///< The head that comes announces another.
    bool m_answered = false; ///< The response's head has come.
    bool m_headGiven = false;
    bool m_refused = false; ///< The sink wants no more.
    std::string m_reason;
    Clock::time_point m_lastSign;
};

} // namespace

std::int32_t HttpHop(const std::string& url, const HttpLimits& limits, HopEnd end, HopSink& sink,
                     const std::stop_token& stop)
{
    static const CURLcode ready = curl_global_init(CURL_GLOBAL_DEFAULT);
    return ready == CURLE_OK ? Exchange(url, limits, end, sink).Run(stop)
                             : error_code::kInternetBroken;
}

} // namespace velmo::platform
