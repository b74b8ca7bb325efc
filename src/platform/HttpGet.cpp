#include "platform/HttpGet.h"

#include "platform/HttpHop.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <charconv>
#include <cstdio>
#include <optional>
#include <string_view>

namespace velmo::platform
{
namespace
{

constexpr std::int32_t kTooLarge = 223;
constexpr std::int32_t kServerError = 12003;
constexpr std::int32_t kNoUrl = 12005;
constexpr std::int32_t kUnknownScheme = 12006;
constexpr std::int32_t kStopped = 12017;
constexpr std::int32_t kNotFound = 12028;
constexpr std::int32_t kEndedTooEarly = 12030;
constexpr std::int32_t kBadRedirect = 12156;

struct Reason
{
    std::int32_t code;
    std::string_view text;
};

// Own sentences, so that a log reads the same whichever system wrote it.
constexpr std::array kReasons{
    Reason{kTooLarge, "The file is larger than allowed."},
    Reason{12002, "The server did not answer in time."},
    Reason{12004, "The internet functions of this computer do not work."},
    Reason{kNoUrl, "The address is not valid."},
    Reason{kUnknownScheme, "The address is neither http nor https."},
    Reason{12007, "The server name could not be resolved."},
    Reason{kStopped, "The download was cancelled."},
    Reason{kNotFound, "The server does not have this file."},
    Reason{12029, "The server could not be reached."},
    Reason{kEndedTooEarly, "The connection ended before the whole file had arrived."},
    Reason{12031, "The connection was reset."},
    Reason{12045, "The server's certificate is not trusted."},
    Reason{12152, "The server's answer could not be understood."},
    Reason{kBadRedirect, "The server redirects too often or to an insecure address."},
    Reason{12157, "No secure connection could be made to the server."},
};

Error Failure(std::int32_t code)
{
    const auto known = std::find_if(kReasons.begin(), kReasons.end(),
                                    [code](const Reason& reason) { return reason.code == code; });
    return {code, known == kReasons.end() ? "The download failed." : std::string(known->text)};
}

bool StartsWithScheme(std::string_view url, std::string_view scheme)
{
    return url.size() >= scheme.size() &&
           std::equal(scheme.begin(), scheme.end(), url.begin(), [](char wanted, char given) {
               return wanted == std::tolower(static_cast<unsigned char>(given));
           });
}

bool IsSecure(std::string_view url)
{
    return StartsWithScheme(url, "https://");
}

/// Percent-encodes what may not stand in a request: blanks, control characters, all but ASCII.
std::string Encoded(std::string_view text)
{
    constexpr std::string_view kNeverPlain = "\"<>\\^`{|}";
    std::string encoded;
    for (const char c : text)
    {
        if (c > ' ' && c < 0x7f && kNeverPlain.find(c) == std::string_view::npos)
        {
            encoded += c;
            continue;
        }
        std::array<char, 4> hex{};
        std::snprintf(hex.data(), hex.size(), "%%%02X", static_cast<unsigned char>(c));
        encoded += hex.data();
    }
    return encoded;
}

/// False for a port out of range, of which Windows would take the lower 16 bits.
bool HasGoodPort(std::string_view authority)
{
    const std::string_view host = authority.substr(authority.rfind('@') + 1);
    const std::size_t colon = host.find(':', host.rfind(']') + 1);
    if (colon == std::string_view::npos)
    {
        return true;
    }
    const std::string_view port = host.substr(colon + 1);
    std::uint16_t number = 0;
    const auto end = std::from_chars(port.data(), port.data() + port.size(), number);
    return port.empty() || (end.ec == std::errc() && end.ptr == port.data() + port.size());
}

/// The address as it is requested, or why it cannot be.
Result<std::string> Requestable(std::string_view url)
{
    if (url.empty())
    {
        return Failure(kNoUrl);
    }
    if (!StartsWithScheme(url, "http://") && !IsSecure(url))
    {
        return Failure(kUnknownScheme);
    }
    const std::size_t host = url.find("//") + 2;
    const std::string_view authority = url.substr(host, url.find_first_of("/?#", host) - host);
    if (authority.empty() || !HasGoodPort(authority))
    {
        return Failure(kNoUrl);
    }
    return Encoded(url.substr(0, url.find('#')));
}

/// Takes one response: passes on the body of a good one, keeps the head of any.
class Response final : public HopSink
{
  public:
    Response(std::uint64_t most, ByteSink& sink) : m_most(most), m_sink(sink) {}

    bool Head(const HttpHead& head) override
    {
        m_head = head;
        if (!IsGood())
        {
            return false;
        }
        if (head.length)
        {
            if (*head.length > m_most)
            {
                m_error = Failure(kTooLarge);
                return false;
            }
            m_sink.Expect(*head.length);
        }
        return true;
    }

    bool Add(std::span<const std::byte> bytes) override
    {
        m_received += bytes.size();
        if (m_received > m_most)
        {
            m_error = Failure(kTooLarge);
            return false;
        }
        const Result<Done> taken = m_sink.Add(bytes);
        if (!taken)
        {
            m_error = taken.Failure();
        }
        return taken.Ok();
    }

    /// The redirect's target, empty when the response is none.
    [[nodiscard]] std::string Target() const
    {
        constexpr std::array kRedirects{301, 302, 303, 307, 308};
        const bool redirect =
            std::find(kRedirects.begin(), kRedirects.end(), m_head.status) != kRedirects.end();
        return redirect ? m_head.location : std::string();
    }

    /// What came of a response that is no redirect.
    [[nodiscard]] Result<Done> Outcome() const
    {
        if (m_error)
        {
            return *m_error;
        }
        if (m_head.status == 404 || m_head.status == 410)
        {
            return Failure(kNotFound);
        }
        if (!IsGood())
        {
            return Error{kServerError, std::to_string(m_head.status) + " " + m_head.reason};
        }
        if (m_head.length && *m_head.length != m_received)
        {
            return Failure(kEndedTooEarly);
        }
        return Done{};
    }

  private:
    [[nodiscard]] bool IsGood() const { return m_head.status >= 200 && m_head.status < 300; }

    std::uint64_t m_most;
    ByteSink& m_sink;
    HttpHead m_head;
    std::uint64_t m_received = 0;
    std::optional<Error> m_error;
};

} // namespace

Result<Done> HttpGet(const std::string& url, const HttpLimits& limits, ByteSink& sink,
                     std::stop_token stop)
{
    std::string next = url;
    for (int redirects = 0;; ++redirects)
    {
        const Result<std::string> request = Requestable(next);
        if (!request)
        {
            return request.Failure();
        }
        if (stop.stop_requested())
        {
            return Failure(kStopped);
        }
        Response response(limits.mostBytes, sink);
        const std::int32_t code = HttpHop(request.Value(), limits, response, stop);
        if (code != 0)
        {
            return Failure(code);
        }
        const bool secure = IsSecure(next);
        next = response.Target();
        if (next.empty())
        {
            return response.Outcome();
        }
        if (redirects == limits.mostRedirects || (secure && StartsWithScheme(next, "http://")))
        {
            return Failure(kBadRedirect);
        }
    }
}

} // namespace velmo::platform
