#include "download/InternetErrorText.h"

#include "platform/ErrorCode.h"
#include "text/Utf8.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace velmo
{
namespace
{

struct Sentence
{
    std::int32_t code;
    std::string_view text;
};

// Trailing blanks are part of the sentences.
constexpr std::array kSentences{
    Sentence{12001, "No more handles could be generated at this time"},
    Sentence{12002, "The request has timed out."},
    Sentence{12004, "An internal error has occurred."},
    Sentence{12005, "URL is invalid."},
    Sentence{12006, "URL scheme could not be recognized, or is not supported."},
    Sentence{12007, "Server name could not be resolved."},
    Sentence{12008, "Requested protocol could not be located."},
    Sentence{12009, "Request to InternetQueryOption or InternetSetOption specified an invalid "
                    "option value."},
    Sentence{12010, "Length of an option supplied to InternetQueryOption or InternetSetOption is "
                    "incorrect for the type of option specified."},
    Sentence{12011, "Request option can not be set, only queried. "},
    Sentence{12012, "Win32 Internet support is being shutdown or unloaded."},
    Sentence{12013, "Request to connect and login to an FTP server could not be completed because "
                    "the supplied user name is incorrect."},
    Sentence{12014, "Request to connect and login to an FTP server could not be completed because "
                    "the supplied password is incorrect. "},
    Sentence{12015, "Request to connect to and login to an FTP server failed."},
    Sentence{12016, "Requested operation is invalid. "},
    Sentence{12017, "Operation was canceled, usually because the handle on which the request was "
                    "operating was closed before the operation completed."},
    Sentence{12018, "Type of handle supplied is incorrect for this operation."},
    Sentence{12019, "Requested operation can not be carried out because the handle supplied is "
                    "not in the correct state."},
    Sentence{12020, "Request can not be made via a proxy."},
    Sentence{12021, "Required registry value could not be located. "},
    Sentence{12022, "Required registry value was located but is an incorrect type or has an "
                    "invalid value."},
    Sentence{12023, "Direct network access cannot be made at this time. "},
    Sentence{12024, "Asynchronous request could not be made because a zero context value was "
                    "supplied."},
    Sentence{12025, "Asynchronous request could not be made because a callback function has not "
                    "been set."},
    Sentence{12026, "Required operation could not be completed because one or more requests are "
                    "pending."},
    Sentence{12027, "Format of the request is invalid."},
    Sentence{12028, "Requested item could not be located."},
    Sentence{12029, "Attempt to connect to the server failed."},
    Sentence{12030, "Connection with the server has been terminated."},
    Sentence{12031, "Connection with the server has been reset."},
    Sentence{12036, "Request failed because the handle already exists."},
};

constexpr std::size_t kMostCharacters = 256;
constexpr std::string_view kNoDetails = "Error details not available.";

} // namespace

std::string InternetErrorText(std::int32_t code, std::string_view serverResponse)
{
    if (code == error_code::kServerSaysWhy)
    {
        const std::string_view said =
            FirstCharacters(serverResponse.substr(0, serverResponse.find('\0')), kMostCharacters);
        return said.empty() ? "Extended error returned from server." : std::string(said);
    }
    const auto found =
        std::find_if(kSentences.begin(), kSentences.end(),
                     [code](const Sentence& sentence) { return sentence.code == code; });
    return std::string(found == kSentences.end() ? kNoDetails : found->text);
}

std::string ReasonText(const Error& error)
{
    std::string text = InternetErrorText(error.code, error.description);
    return text == kNoDetails && !error.description.empty() ? error.description : text;
}

} // namespace velmo
