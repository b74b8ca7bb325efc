#pragma once

#include <array>
#include <cstdint>
#include <string_view>

namespace velmo::sample
{

/// What the sample vendor tells about one of its programs. Plain text, to be escaped for HTML.
struct ProgramText
{
    std::string_view summary;                 ///< One or two sentences.
    std::array<std::string_view, 3> features; ///< What it does.
    std::array<std::string_view, 3> changes;  ///< Of its latest version; empty: no update page.
};

/// The texts of a catalogue row, 0 to 33. Pure; any thread.
[[nodiscard]] const ProgramText& TextOfProgram(std::int32_t index);

} // namespace velmo::sample
