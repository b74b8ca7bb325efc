#pragma once

#include <string>
#include <string_view>

namespace velmo::platform
{

/// What stands for text that cannot be read.
inline constexpr char32_t kReplacement = 0xFFFD;

/// Takes the first code point off non-empty UTF-8 text. An ill-formed sequence, surrogates and
/// overlong forms included, gives kReplacement and takes as many bytes as could have begun one.
[[nodiscard]] char32_t TakeCodePoint(std::string_view& text);

void AppendCodePoint(std::string& text, char32_t c);

} // namespace velmo::platform
