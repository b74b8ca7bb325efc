#pragma once

#include <span>
#include <string>
#include <string_view>

/// The look of the sample vendor's pages: plain HTML without scripts that also a simple browser pane
/// shows. Arguments are plain text unless said otherwise. Pure; any thread.
namespace velmo::sample
{

/// Text with the characters that mean something in HTML replaced.
[[nodiscard]] std::string Escaped(std::string_view text);

[[nodiscard]] std::string Heading(std::string_view text);
[[nodiscard]] std::string Paragraph(std::string_view text);
[[nodiscard]] std::string Bullets(std::span<const std::string_view> items);
[[nodiscard]] std::string Link(std::string_view address, std::string_view text);

/// A place inside the page that an address can end in.
[[nodiscard]] std::string Anchor(std::string_view name);

/// A whole page; @a body is HTML.
[[nodiscard]] std::string Page(std::string_view title, std::string_view body);

} // namespace velmo::sample
