#pragma once

#include <string>
#include <string_view>

namespace velmo::platform
{

/// A profile's text as it is worked on: an ANSI file's own bytes, so that what is not written stays
/// as it is, or the UTF-8 of a UTF-16 file. Any thread.
class ProfileBytes
{
  public:
    /// Of a file's bytes.
    explicit ProfileBytes(std::string_view bytes);

    /// Of text in UTF-8.
    [[nodiscard]] static ProfileBytes OfText(std::string text);

    [[nodiscard]] const std::string& Text() const { return m_text; }

    /// A name or value in the form that the text has, from UTF-8.
    [[nodiscard]] std::string Inward(std::string_view utf8) const;

    /// A part of the text in UTF-8.
    [[nodiscard]] std::string Outward(std::string_view part) const;

    /// A changed text as the file's bytes.
    [[nodiscard]] std::string FileBytes(std::string text) const;

  private:
    bool m_isUtf16;
    std::string m_text;
};

/// The first characters, as many as fit into @a most UTF-16 units, which is how Windows counts.
[[nodiscard]] std::string Shortened(std::string_view text, std::size_t most);

} // namespace velmo::platform
