#pragma once

#include <cstdint>
#include <string>

namespace velmo::platform
{

/// The name of a language by its Windows number (LANGID), in the words of the system: an English
/// Windows says "German (Germany)", and "Language Neutral" for a number without a language; empty when
/// the system has no name. Natively the words of an English Windows. Any thread.
[[nodiscard]] std::string LanguageName(std::uint16_t language);

} // namespace velmo::platform
