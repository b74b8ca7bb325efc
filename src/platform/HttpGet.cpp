#include "platform/HttpGet.h"

#include "platform/AnsiText.h"
#include "platform/ErrorCode.h"
#include "platform/HttpHop.h"
#include "text/TextCase.h"
#include "text/Utf8.h"
#include "text/WebAddress.h"

#include <algorithm>
#include <array>
#include <optional>
#include <string_view>

namespace velmo::platform
{
namespace
{

struct Reason
{
    std::int32_t code;
    std::string_view text;
};

// Own sentences, so that a log reads the same whichever system wrote it.
constexpr std::array kReasons{
    Reason{error_code::kTooLarge, "The file is larger than allowed."},
    Reason{error_code::kTimedOut, "The server did not answer in time."},
    Reason{error_code::kInternetBroken, "The internet functions of this computer do not work."},
    Reason{error_code::kInvalidAddress, "The address is not valid."},
    Reason{error_code::kUnknownScheme, "The address is neither http nor https."},
    Reason{error_code::kUnknownHost, "The server name could not be resolved."},
    Reason{error_code::kCancelled, "The download was cancelled."},
    Reason{error_code::kNotOnServer, "The server does not have this file."},
    Reason{error_code::kCannotConnect, "The server could not be reached."},
    Reason{error_code::kEndedTooEarly, "The connection ended before the whole file had arrived."},
    Reason{error_code::kReset, "The connection was reset."},
    Reason{error_code::kUntrustedCertificate, "The server's certificate is not trusted."},
    Reason{error_code::kNoHttp, "The server's answer could not be understood."},
    Reason{error_code::kBadRedirect, "The server redirects too often or to an insecure address."},
    Reason{error_code::kNoSecureChannel, "No secure connection could be made to the server."},
};

Error Failure(std::int32_t code)
{
    const auto known = std::find_if(kReasons.begin(), kReasons.end(),
                                    [code](const Reason& reason) { return reason.code == code; });
    return {code, known == kReasons.end() ? "The download failed." : std::string(known->text)};
}

bool IsSecure(std::string_view url)
{
    return WebSchemeOf(url) == WebScheme::Https;
}

/// The address as it is requested, or why it cannot be.
Result<std::string> Requestable(std::string_view url)
{
    const std::optional<WebScheme> scheme = WebSchemeOf(url);
    if (!url.empty() && (!scheme || scheme == WebScheme::Ftp))
    {
        return Failure(error_code::kUnknownScheme);
    }
    const std::optional<WebAddress> address = ParseWebAddress(url);
    if (!address)
    {
        return Failure(error_code::kInvalidAddress);
    }
    return address->text.substr(0, address->text.find('#'));
}

/// The one status of an answer that is all of the file and nothing else: no part of it, no empty "204".
constexpr int kGood = 200;

/// What a server says of itself. Its bytes may be of any encoding and may control a terminal.
std::string Spoken(std::string_view bytes)
{
    constexpr std::size_t kMostCharacters = 256;
    const std::string text = IsValidUtf8(bytes) ? std::string(bytes) : FromAnsi(bytes);
    return WithoutControls(FirstCharacters(text, kMostCharacters));
}

/// E.g. "404 Not Found".
std::string StatusText(const HttpHead& head)
{
    return std::string(Trimmed(std::to_string(head.status) + " " + Spoken(head.reason)));
}

/// Takes one response: passes on the body of a good one, keeps the head of any.
class Response final : public HopSink
{
  public:
    Response(std::uint64_t most, const ByteSink& sink) : m_most(most), m_sink(sink) {}

    bool Head(const HttpHead& head) override
    {
        m_head = head;
        if (m_head.status != kGood || IsEncoded())
        {
            return false;
        }
        if (head.length.value_or(0) > m_most)
        {
            m_error = Failure(error_code::kTooLarge);
        }
        return !m_error;
    }

    bool Add(std::span<const std::byte> bytes) override
    {
        m_received += bytes.size();
        if (m_received > m_most)
        {
            m_error = Failure(error_code::kTooLarge);
            return false;
        }
        const Result<Done> taken = m_sink(bytes);
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
            return Failure(error_code::kNotOnServer);
        }
        if (m_head.status != kGood)
        {
            return Error{error_code::kServerSaysWhy, StatusText(m_head)};
        }
        if (IsEncoded())
        {
            return Error{error_code::kNoHttp,
                         "The server sent the file in an encoding that was not "
                         "asked for: " +
                             Spoken(m_head.encoding)};
        }
        if (m_head.length && *m_head.length != m_received)
        {
            return Failure(error_code::kEndedTooEarly);
        }
        return Done{};
    }

  private:
    [[nodiscard]] bool IsEncoded() const
    {
        return !m_head.encoding.empty() && !EqualInAnyCase(m_head.encoding, "identity");
    }

    std::uint64_t m_most;
    const ByteSink& m_sink;
    HttpHead m_head;
    std::uint64_t m_received = 0;
    std::optional<Error> m_error;
};

} // namespace

Result<Done> HttpGet(const std::string& url, const HttpLimits& limits, const ByteSink& sink,
                     std::stop_token stop)
{
    const HopEnd end = std::chrono::steady_clock::now() + limits.wholeTimeout;
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
            return Failure(error_code::kCancelled);
        }
        Response response(limits.mostBytes, sink);
        const std::int32_t code = HttpHop(request.Value(), limits, end, response, stop);
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
        if (redirects == limits.mostRedirects || (secure && WebSchemeOf(next) == WebScheme::Http))
        {
            return Failure(error_code::kBadRedirect);
        }
    }
}

} // namespace velmo::platform
