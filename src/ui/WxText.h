#pragma once

#include <wx/string.h>

#include <string>
#include <string_view>

namespace velmo
{

/// Texts inside are UTF-8, the toolkit has its own strings; any thread. Neither function fails.
/// Bytes that are no UTF-8 give an empty text: what comes from outside was made UTF-8 at its edge.
[[nodiscard]] inline wxString ToWx(std::string_view utf8)
{
    return wxString::FromUTF8(utf8.data(), utf8.size());
}

/// Half a surrogate pair, which only a pasted text can hold, becomes the replacement character.
[[nodiscard]] inline std::string FromWx(const wxString& text)
{
    return text.utf8_string();
}

} // namespace velmo
