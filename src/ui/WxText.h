#pragma once

#include <wx/string.h>

#include <string>
#include <string_view>

namespace velmo
{

[[nodiscard]] inline wxString ToWx(std::string_view utf8)
{
    return wxString::FromUTF8(utf8.data(), utf8.size());
}

[[nodiscard]] inline std::string FromWx(const wxString& text)
{
    return text.utf8_string();
}

} // namespace velmo
