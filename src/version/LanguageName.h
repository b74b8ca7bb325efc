#pragma once

#include <cstdint>
#include <string_view>

namespace velmo
{

/// The name of a language by its Windows number (LANGID), as an English Windows gives it: "German
/// (Germany)"; "Language Neutral" for a number without a language. Any thread.
[[nodiscard]] std::string_view LanguageName(std::uint16_t language);

} // namespace velmo
