#include "platform/windows/InternetCode.h"

#include "platform/ErrorCode.h"

#include <windows.h>

#include <wininet.h>

#include <algorithm>
#include <array>

namespace velmo::platform
{
namespace
{

struct Pair
{
    DWORD given;
    std::int32_t internet;
};

/// What differs from one Windows to another, under one number each.
constexpr std::array kPairs{
    Pair{WSAECONNRESET, error_code::kReset},
    Pair{WSAECONNABORTED, error_code::kReset},
    Pair{ERROR_INTERNET_SEC_CERT_DATE_INVALID, error_code::kUntrustedCertificate},
    Pair{ERROR_INTERNET_SEC_CERT_CN_INVALID, error_code::kUntrustedCertificate},
    Pair{ERROR_INTERNET_SEC_CERT_ERRORS, error_code::kUntrustedCertificate},
    Pair{ERROR_INTERNET_SEC_CERT_REV_FAILED, error_code::kUntrustedCertificate},
    Pair{ERROR_INTERNET_SEC_INVALID_CERT, error_code::kUntrustedCertificate},
    Pair{ERROR_INTERNET_SEC_CERT_REVOKED, error_code::kUntrustedCertificate},
    Pair{ERROR_INTERNET_CLIENT_AUTH_CERT_NEEDED, error_code::kNoSecureChannel},
    // "Decoding failed", which newer Windows gives for a failed handshake.
    Pair{12175, error_code::kNoSecureChannel},
    Pair{ERROR_INTERNET_SERVER_UNREACHABLE, error_code::kCannotConnect},
    Pair{ERROR_INTERNET_PROXY_SERVER_UNREACHABLE, error_code::kCannotConnect},
    Pair{ERROR_INTERNET_DISCONNECTED, error_code::kCannotConnect},
};

} // namespace

std::int32_t InternetCode(unsigned long given)
{
    const auto pair = std::ranges::find(kPairs, given, &Pair::given);
    return pair == kPairs.end() ? static_cast<std::int32_t>(given) : pair->internet;
}

} // namespace velmo::platform
