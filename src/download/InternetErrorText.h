#pragma once

#include "platform/Result.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace velmo
{

/**
    The sentence for an internet error code, as the status box shows it. Codes without a sentence of
    their own, 0 among them, read "Error details not available.".

    Code 12003 means that the server itself said what is wrong: the sentence is @a serverResponse up to
    its first NUL, 256 characters at most, or a fixed one when the server said nothing.
 */
[[nodiscard]] std::string InternetErrorText(std::int32_t code,
                                            std::string_view serverResponse = {});

/// The sentence for the error's code; where there is none, what the error itself says.
[[nodiscard]] std::string ReasonText(const Error& error);

} // namespace velmo
